#pragma once

#include "ui/parts/Appearance.h"
#include "ui/parts/Views.h"

#include <QQuickWindow>

#include <memory>

namespace larkspan::ui {

/// The name above the tile under the pointer. Takes neither pointer nor focus. Main thread only.
class LabelWindow : public QQuickWindow {
    Q_OBJECT

  public:
    LabelWindow(Views& views, Appearance& appearance);
    ~LabelWindow() override;

    /// Coordinates as in MenuWindow::open.
    void showAbove(const QString& text, const QRectF& anchor, const QRectF& screen,
                   bool isTranslucent);

  private:
    std::unique_ptr<QQuickItem> root_;
};

} // namespace larkspan::ui
