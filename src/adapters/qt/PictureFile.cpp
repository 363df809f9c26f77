#include "adapters/qt/PictureFile.h"

#include "adapters/qt/fitted.h"

#include <QImage>
#include <QImageReader>
#include <QString>

#include <algorithm>
#include <utility>

namespace larkspan::qt {

namespace {

bool isDrawing(const std::string& path) {
    return path.ends_with(".svg") || path.ends_with(".svgz");
}

/// A scalable image is rendered at the wanted size; others are read as they are.
QImage readPicture(const std::string& path, int pixels) {
    QImageReader reader(QString::fromStdString(path));
    if (isDrawing(path)) {
        const QSize size = reader.size();
        if (size.isEmpty()) return {};
        reader.setScaledSize(size.scaled(pixels, pixels, Qt::KeepAspectRatio).expandedTo({1, 1}));
    } else {
        // The extension of a theme's file is not always that of its format.
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

/// The files, the one that will look sharpest first: made for exactly this size, then scalable,
/// then larger ones (smallest first), then smaller ones (largest first).
std::vector<PictureFile::File> PictureFile::filesByFit(int pixels) const {
    const auto misfit = [pixels](const File& file) {
        if (file.pixels == pixels) return std::pair(0, file.isScalable ? 0 : 1);
        const int kind = file.isScalable ? 1 : 3;
        if (file.isScalable && file.pixels == 0) return std::pair(kind, 0);
        if (file.pixels > pixels) return std::pair(kind, file.pixels);
        return std::pair(kind + 1, -file.pixels);
    };
    auto files = files_;
    std::ranges::stable_sort(files, {}, misfit);
    return files;
}

Bitmap PictureFile::bitmap(int pixels) const {
    if (pixels <= 0) return {};
    for (const File& file : filesByFit(pixels)) {
        const QImage picture = readPicture(file.path, pixels);
        if (!picture.isNull()) return fitted(picture, pixels);
    }
    return {};
}

} // namespace larkspan::qt
