#include "settings/BarSettings.h"

#include "settings/SettingValue.h"

#include <cassert>
#include <nlohmann/json.hpp>
#include <string>
#include <variant>

namespace larkspan {
namespace {

std::string_view keyOf(BarSettings::Record record) {
    switch (record) {
    case BarSettings::Record::shelf:
        return "shelf";
    case BarSettings::Record::stacks:
        return "stacks";
    case BarSettings::Record::folderStacks:
        return "folderStacks";
    }
    return {};
}

PropertyValue storedWord(BarMode mode) {
    return std::string(rawValue(mode));
}

} // namespace

std::string_view rawValue(BarMode mode) {
    return findSetting(settingsTable(true), "mode")->choices[static_cast<std::size_t>(mode)].word;
}

const Setting& BarSettings::row(std::string_view key) const {
    const auto* row = findSetting(table_, key);
    assert(row);
    return *row;
}

SettingValue BarSettings::value(const Setting& setting) const {
    return acceptStored(setting, defaults_.value(setting.key));
}

void BarSettings::set(const Setting& setting, const SettingValue& value) {
    if (value)
        defaults_.set(setting.key, *value);
    else
        defaults_.remove(setting.key);
}

BarMode BarSettings::mode() const {
    const bool isDock = value(row("mode")) == storedWord(BarMode::systemDock);
    return isDock ? BarMode::systemDock : BarMode::vantrel;
}

void BarSettings::setMode(BarMode mode) {
    set(row("mode"), storedWord(mode));
}

bool BarSettings::previewsSingleWindows() const {
    return value(row("previewsSingleWindows")) == PropertyValue(true);
}

std::optional<float> BarSettings::syncedTileSize() const {
    const auto fraction = number("syncedTileSize");
    return fraction ? std::optional(static_cast<float>(*fraction)) : std::nullopt;
}

void BarSettings::setSyncedTileSize(float fraction) {
    set(row("syncedTileSize"), static_cast<double>(fraction));
}

std::optional<double> BarSettings::number(std::string_view key) const {
    const auto stored = value(row(key));
    return stored ? std::optional(std::get<double>(stored->value)) : std::nullopt;
}

std::optional<nlohmann::json> BarSettings::record(Record record) const {
    const auto stored = defaults_.value(keyOf(record));
    const auto* data = stored ? stored->as<Data>() : nullptr;
    if (!data) return std::nullopt;
    auto content = nlohmann::json::parse(data->bytes, nullptr, false);
    if (content.is_discarded()) return std::nullopt;
    return content;
}

void BarSettings::setRecord(Record record, const nlohmann::json& content) {
    // File names may contain invalid UTF-8, which must not make the write fail.
    defaults_.set(keyOf(record),
                  Data{content.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)});
}

} // namespace larkspan
