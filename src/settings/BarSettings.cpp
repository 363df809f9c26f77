#include "settings/BarSettings.h"

#include "settings/RawValues.h"
#include "settings/StoredValue.h"

#include <nlohmann/json.hpp>
#include <string>

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

} // namespace

BarMode BarSettings::mode() const {
    const bool isDock = storedString(defaults_, "mode") == rawValue(BarMode::systemDock);
    return isDock ? BarMode::systemDock : BarMode::vantrel;
}

void BarSettings::setMode(BarMode mode) {
    defaults_.set("mode", std::string(rawValue(mode)));
}

std::optional<double> BarSettings::barHeight() const {
    return storedNumber(defaults_, "barHeight");
}

void BarSettings::setBarHeight(std::optional<double> height) {
    if (height)
        defaults_.set("barHeight", *height);
    else
        defaults_.remove("barHeight");
}

bool BarSettings::previewsSingleWindows() const {
    return storedBool(defaults_, "previewsSingleWindows").value_or(true);
}

void BarSettings::setPreviewsSingleWindows(bool shows) {
    defaults_.set("previewsSingleWindows", shows);
}

std::optional<float> BarSettings::syncedTileSize() const {
    const auto number = storedNumber(defaults_, "syncedTileSize");
    return number ? std::optional(static_cast<float>(*number)) : std::nullopt;
}

void BarSettings::setSyncedTileSize(float fraction) {
    defaults_.set("syncedTileSize", static_cast<double>(fraction));
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
    // Names of files may hold bytes that are no UTF-8; they must not make the write fail.
    defaults_.set(keyOf(record),
                  Data{content.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)});
}

} // namespace larkspan
