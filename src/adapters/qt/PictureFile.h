#pragma once

#include "platform/Image.h"

#include <string>
#include <vector>

namespace larkspan::qt {

/// A picture in one or several files of the formats Qt reads (PNG, SVG, XPM, …), each file the same
/// picture at another size. The files are read each time it is drawn.
class PictureFile : public Image {
  public:
    struct File {
        std::string path;
        /// The side it was made for in pixels; 0 when it was made for none in particular.
        int pixels = 0;
        /// A drawing, sharp at any size.
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
