#include "adapters/qt/DefaultsFile.h"

#include "adapters/qt/PropertyJson.h"

#include <fmt/format.h>

#include <utility>

namespace larkspan::qt {

DefaultsFile::DefaultsFile(std::string path, std::function<void(const std::string&)> report)
    : file_(std::move(path))
    , report_(std::move(report)) {
    load();
    file_.removeLeftovers();
}

void DefaultsFile::load() {
    stamp_ = file_.stamp();
    const WholeFile::Contents contents = file_.read();
    isBlocked_ = contents.state == WholeFile::State::unreadable;
    if (isBlocked_) {
        reportOnce("cannot be read");
        return;
    }
    // An empty file contains nothing that could be lost.
    if (contents.text.find_first_not_of(" \t\r\n") == std::string::npos) {
        values_.clear();
        return;
    }
    if (auto values = parseJsonText(contents.text)) {
        values_ = std::move(*values);
        return;
    }
    values_.clear();
    const auto aside = file_.setAside();
    isBlocked_ = !aside;
    stamp_ = file_.stamp();
    if (aside) report_(fmt::format("{} is damaged and was moved to {}", file_.path(), *aside));
    if (!aside) reportOnce("is damaged and cannot be moved aside");
}

void DefaultsFile::reportOnce(const std::string& problem) {
    if (std::exchange(hasReported_, true)) return;
    report_(fmt::format("{} {}; changes are lost when Larkspan quits", file_.path(), problem));
}

std::optional<PropertyValue> DefaultsFile::value(std::string_view key) const {
    const auto found = values_.find(std::string(key));
    if (found == values_.end()) return std::nullopt;
    return found->second;
}

void DefaultsFile::set(std::string_view key, PropertyValue value) {
    followOutsideChange();
    const auto [stored, isNew] = values_.try_emplace(std::string(key), value);
    if (!isNew && stored->second == value) return;
    stored->second = std::move(value);
    store();
}

void DefaultsFile::remove(std::string_view key) {
    followOutsideChange();
    if (values_.erase(std::string(key)) > 0) store();
}

bool DefaultsFile::synchronize() {
    if (isUnsaved_) store();
    return !isUnsaved_;
}

/// Keeps what an editor or an instance on another display has written: only the key being set is
/// changed.
void DefaultsFile::followOutsideChange() {
    if (!isUnsaved_ && file_.stamp() != stamp_) load();
}

void DefaultsFile::store() {
    isUnsaved_ = isBlocked_ || !file_.write(jsonText(values_));
    if (isUnsaved_) {
        reportOnce("cannot be written");
        return;
    }
    stamp_ = file_.stamp();
    hasReported_ = false;
}

} // namespace larkspan::qt
