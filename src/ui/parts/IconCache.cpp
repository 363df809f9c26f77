#include "ui/parts/IconCache.h"

#include "ui/parts/Pictures.h"

#include <algorithm>

namespace larkspan::ui {

namespace {

/// Sizes kept of one icon: that of each kind of screen, and the last one while a bar shrinks.
constexpr std::size_t sizesKept = 3;

} // namespace

QImage IconCache::picture(const ImageRef& image, const QString& name, int pixels) {
    if (pixels <= 0) return {};
    if (!image) return letterPicture(name, pixels);
    const auto entry = entries_.find(image->identity());
    if (entry == entries_.end() || entry->second.pictures.empty()) return make(image, name, pixels);
    entry->second.image = image;
    for (const auto& [size, picture] : entry->second.pictures)
        if (size == pixels) return picture;
    if (requests_.empty())
        QMetaObject::invokeMethod(this, &IconCache::refineNext, Qt::QueuedConnection);
    requests_.push_back({image, name, pixels});
    return entry->second.pictures.back().second;
}

const QImage& IconCache::make(const ImageRef& image, const QString& name, int pixels) {
    Entry& entry = entries_[image->identity()];
    entry.image = image;
    QImage picture = pictureOf(image->bitmap(pixels));
    if (picture.isNull()) picture = letterPicture(name, pixels);
    if (entry.pictures.size() == sizesKept) entry.pictures.erase(entry.pictures.begin());
    entry.pictures.emplace_back(pixels, std::move(picture));
    return entry.pictures.back().second;
}

/// One icon a turn, so that a click never waits for sixty of them.
void IconCache::refineNext() {
    const Request request = std::move(requests_.front());
    requests_.pop_front();
    if (!requests_.empty())
        QMetaObject::invokeMethod(this, &IconCache::refineNext, Qt::QueuedConnection);
    const auto entry = entries_.find(request.image->identity());
    const bool isThere =
        entry != entries_.end() &&
        std::any_of(entry->second.pictures.begin(), entry->second.pictures.end(),
                    [&](const auto& picture) { return picture.first == request.pixels; });
    if (!isThere) make(request.image, request.name, request.pixels);
    if (requests_.empty()) forgetUnused();
    Q_EMIT refined(QString::fromStdString(request.image->identity()));
}

void IconCache::forgetUnused() {
    std::erase_if(entries_, [](const auto& entry) { return entry.second.image.expired(); });
}

} // namespace larkspan::ui
