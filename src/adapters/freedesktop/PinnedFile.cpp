#include "adapters/freedesktop/PinnedFile.h"

#include "adapters/qt/PropertyJson.h"

#include <QString>
#include <QUrl>

#include <fmt/format.h>

#include <filesystem>
#include <utility>

namespace larkspan::freedesktop {

namespace {

constexpr const char* listKey = "persistent-apps";
// The value is a URL with a scheme, such as file:///….
constexpr int addressType = 15;

PropertyValue tile(const DesktopEntry& entry) {
    using Dictionary = PropertyValue::Dictionary;
    const QUrl address = QUrl::fromLocalFile(QString::fromStdString(entry.path));
    return Dictionary{
        {"tile-type", "file-tile"},
        {"tile-data",
         Dictionary{{"bundle-identifier", entry.id},
                    {"file-label", entry.name},
                    {"file-data", Dictionary{{"_CFURLString", address.toEncoded().toStdString()},
                                             {"_CFURLStringType", addressType}}}}}};
}

} // namespace

PinnedFile::PinnedFile(std::string path, const DefaultApplications& defaults,
                       std::function<void(const std::string&)> report)
    : file_(std::move(path))
    , defaults_(defaults)
    , report_(std::move(report))
    , watch_([this] { folderChanged(); }) {
    load();
    file_.removeLeftovers();
    const std::filesystem::path place = file_.path();
    watch_.add(place.parent_path().string());
    // If the file is a link, its target is written.
    std::error_code error;
    const auto target = std::filesystem::canonical(place, error);
    if (!error) watch_.add(target.parent_path().string());
}

void PinnedFile::load() {
    values_.clear();
    stamp_ = file_.stamp();
    const auto contents = file_.read();
    bool isLost = contents.state == qt::WholeFile::State::absent;
    if (contents.state == qt::WholeFile::State::unreadable)
        report_(fmt::format("cannot read {}", file_.path()));
    if (contents.state == qt::WholeFile::State::read) {
        auto values = qt::parseJsonText(contents.text);
        isLost = !values;
        if (values)
            values_ = std::move(*values);
        else
            setAside();
    }
    if (values_.contains(listKey)) return;
    auto list = firstList();
    const bool isWorthKeeping = !list.empty();
    values_[listKey] = std::move(list);
    // Stored from now on, so that the bar does not change when applications are installed later.
    if (isLost && isWorthKeeping) write();
}

void PinnedFile::setAside() {
    if (const auto aside = file_.setAside())
        report_(fmt::format("{} is damaged and was moved to {}", file_.path(), *aside));
}

PropertyValue::Array PinnedFile::firstList() const {
    PropertyValue::Array list;
    for (const auto& entry : defaults_.firstPinned()) {
        list.push_back(tile(*entry));
    }
    return list;
}

bool PinnedFile::write() {
    if (!file_.write(qt::jsonText(values_))) {
        report_(fmt::format("cannot write {}", file_.path()));
        return false;
    }
    stamp_ = file_.stamp();
    return true;
}

// Read first, so that keys written by other programs are kept.
bool PinnedFile::synchronize() {
    if (file_.stamp() != stamp_) load();
    if (unsaved_.empty()) return true;
    for (const auto& [key, value] : unsaved_)
        values_[key] = value;
    if (!write()) return false;
    unsaved_.clear();
    return true;
}

std::optional<PropertyValue> PinnedFile::copyAppValue(std::string_view key) const {
    for (const auto* values : {&unsaved_, &values_})
        if (const auto found = values->find(std::string(key)); found != values->end())
            return found->second;
    return std::nullopt;
}

void PinnedFile::setAppValue(std::string_view key, PropertyValue value) {
    unsaved_[std::string(key)] = std::move(value);
}

bool PinnedFile::announcesChanges() const {
    return watch_.isWorking();
}

Handle PinnedFile::subscribe(std::function<void()> callback) {
    return changed_.subscribe(std::move(callback));
}

void PinnedFile::folderChanged() {
    // Usually another file of ours, or our own write.
    if (file_.stamp() == stamp_) return;
    load();
    changed_.emit();
}

} // namespace larkspan::freedesktop
