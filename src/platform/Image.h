#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace larkspan {

/// Pixels row by row from the top, each 0xAARRGGBB with colours premultiplied by alpha.
struct Bitmap {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    bool isEmpty() const { return pixels.empty(); }
    bool operator==(const Bitmap&) const = default;
};

/// An image that can be drawn at any size, such as an app's icon. Immutable.
class Image {
  public:
    virtual ~Image() = default;
    /// Two images with the same identity look the same; stable while the program runs.
    virtual const std::string& identity() const = 0;
    /// The image fitted into a square of `pixels` × `pixels`, keeping its proportions; empty if it
    /// cannot be loaded. Any thread. May read a file.
    virtual Bitmap bitmap(int pixels) const = 0;
};

using ImageRef = std::shared_ptr<const Image>;

} // namespace larkspan
