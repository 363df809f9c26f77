#include "adapters/qt/BitmapImage.h"

#include "adapters/qt/fitted.h"

#include <algorithm>
#include <utility>

namespace larkspan::qt {

namespace {

int side(const Bitmap& bitmap) {
    return std::max(bitmap.width, bitmap.height);
}

bool isUsable(const Bitmap& bitmap) {
    const auto count =
        static_cast<std::size_t>(bitmap.width) * static_cast<std::size_t>(bitmap.height);
    return bitmap.width > 0 && bitmap.height > 0 && bitmap.pixels.size() == count;
}

} // namespace

BitmapImage::BitmapImage(std::string identity, std::vector<Bitmap> sizes)
    : identity_(std::move(identity))
    , sizes_(std::move(sizes)) {
    std::erase_if(sizes_, [](const Bitmap& bitmap) { return !isUsable(bitmap); });
    std::ranges::stable_sort(sizes_, {}, side);
}

Bitmap BitmapImage::bitmap(int pixels) const {
    if (sizes_.empty()) return {};
    auto best =
        std::ranges::find_if(sizes_, [&](const Bitmap& bitmap) { return side(bitmap) >= pixels; });
    if (best == sizes_.end()) --best;
    return fitted(view(*best), pixels);
}

} // namespace larkspan::qt
