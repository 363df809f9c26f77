#pragma once

#include "platform/Image.h"

#include <QImage>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <deque>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace larkspan::ui {

/// The icons at the sizes in which bars draw them, shared by all bars. Main thread only.
class IconCache : public QObject {
    Q_OBJECT
    QML_ANONYMOUS

  public:
    /// The icon in that many pixels. When it is at hand only in other sizes, one of those is
    /// answered, the right one is made soon, and `refined` tells when. `name` is for an icon that
    /// cannot be loaded.
    QImage picture(const ImageRef& image, const QString& name, int pixels);

  Q_SIGNALS:
    void refined(const QString& identity);

  private:
    struct Entry {
        /// Once nobody shows the image any more its pictures go too.
        std::weak_ptr<const Image> image;
        std::vector<std::pair<int, QImage>> pictures;
    };
    struct Request {
        ImageRef image;
        QString name;
        int pixels;
    };

    const QImage& make(const ImageRef& image, const QString& name, int pixels);
    void refineNext();
    void forgetUnused();

    std::unordered_map<std::string, Entry> entries_;
    std::deque<Request> requests_;
};

} // namespace larkspan::ui
