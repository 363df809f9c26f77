#include "platform/qt/PictureFile.h"

#include "platform/qt/fitted.h"

#include <QImage>
#include <QImageReader>
#include <QString>

#include <algorithm>
#include <tuple>
#include <utility>

namespace larkspan::qt {

namespace {

bool isDrawing(const std::string& path) {
    return path.ends_with(".svg") || path.ends_with(".svgz");
}

/// A drawing is rendered at the wanted size; pixels are read as they are.
QImage read(const std::string& path, int pixels) {
    QImageReader reader(QString::fromStdString(path));
    if (isDrawing(path)) {
        const QSize size = reader.size();
        if (size.isEmpty()) return {};
        reader.setScaledSize(size.scaled(pixels, pixels, Qt::KeepAspectRatio).expandedTo({1, 1}));
    } else {
        // A theme's files are named after what they should be, not always after what they are.
        reader.setDecideFormatFromContent(true);
    }
    return reader.read();
}

} // namespace

PictureFile::PictureFile(const std::string& path)
    : PictureFile(path, {{.path = path, .isScalable = isDrawing(path)}}) {}

PictureFile::PictureFile(std::string identity, std::vector<File> files)
    : identity_(std::move(identity))
    , files_(std::move(files)) {}

/// The files with the one that will look sharpest first: made for the size, then sharp at any size,
/// then the next larger, then the largest.
std::vector<PictureFile::File> PictureFile::filesByFit(int pixels) const {
    const auto misfit = [pixels](const File& file) {
        if (file.pixels == pixels && !file.isScalable) return std::tuple(0, 0);
        if (file.isScalable) return std::tuple(1, 0);
        if (file.pixels > pixels) return std::tuple(2, file.pixels);
        return std::tuple(3, -file.pixels);
    };
    auto files = files_;
    std::ranges::stable_sort(files, {}, misfit);
    return files;
}

Bitmap PictureFile::bitmap(int pixels) const {
    if (pixels <= 0) return {};
    for (const File& file : filesByFit(pixels)) {
        const QImage picture = read(file.path, pixels);
        if (!picture.isNull()) return fitted(picture, pixels);
    }
    return {};
}

} // namespace larkspan::qt
