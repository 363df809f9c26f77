#pragma once

#include "bar/BarPopups.h"
#include "ui/bar/LabelWindow.h"
#include "ui/menu/MenuWindow.h"
#include "ui/parts/Appearance.h"
#include "ui/parts/Views.h"

#include <QObject>
#include <QRectF>

#include <functional>
#include <memory>

namespace larkspan::ui {

/// The label and the menu above the bars as windows of their own. Each is made when it is first
/// needed: most starts never show them. Main thread only.
class PopupWindows final : public QObject, public BarPopups {
    Q_OBJECT

  public:
    /// Where something stands, in the coordinates of the toolkit's windows.
    struct Place {
        QRectF anchor;
        /// What a window above the anchor must stay inside.
        QRectF screen;
        /// Whether a window's corners can be see-through.
        bool isTranslucent = false;
    };
    using Locate = std::function<Place(const Rect& anchor, const Screen& screen)>;

    PopupWindows(Views& views, Appearance& appearance, Locate locate);

    void showLabel(const std::string& text, const Rect& anchor, const Screen& screen) override;
    void hideLabel() override;
    void openMenu(const Menu& menu, const Rect& anchor, const Screen& screen,
                  bool lightsFirst) override;
    void closeMenu() override;

  Q_SIGNALS:
    /// After `onMenuClosed`.
    void menuClosed();

  private:
    void makeMenu();

    Views& views_;
    Appearance& appearance_;
    Locate locate_;
    std::unique_ptr<LabelWindow> label_;
    std::unique_ptr<MenuWindow> menu_;
};

} // namespace larkspan::ui
