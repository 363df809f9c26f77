#pragma once

#include "platform/Image.h"

#include <string>
#include <vector>

namespace larkspan::qt {

/// An image in one or several files of the formats that Qt reads (PNG, SVG, XPM, …), each with the
/// same image in another size. The files are read each time it is drawn.
class PictureFile : public Image {
  public:
    struct File {
        std::string path;
        /// The size it was made for, in pixels; 0 if none.
        int pixels = 0;
        /// Whether it is a vector image, sharp at any size.
        bool isScalable = false;
    };

    explicit PictureFile(const std::string& path);
    /// `identity` as `Image` defines it; at least one file.
    PictureFile(std::string identity, std::vector<File> files);

    const std::string& identity() const override { return identity_; }
    Bitmap bitmap(int pixels) const override;

  private:
    std::vector<File> filesByFit(int pixels) const;

    std::string identity_;
    std::vector<File> files_;
};

} // namespace larkspan::qt
