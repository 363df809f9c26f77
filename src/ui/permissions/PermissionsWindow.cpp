#include "ui/permissions/PermissionsWindow.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

namespace larkspan::ui {

PermissionsWindow::PermissionsWindow(PermissionsModel& permissions, Views& views,
                                     Appearance& appearance)
    : permissions_(permissions)
    , views_(views)
    , viewModel_(permissions, appearance)
    , observation_(permissions.isShown.observe([this] { update(); })) {}

PermissionsWindow::~PermissionsWindow() {
    view_.reset();
}

void PermissionsWindow::update() {
    if (!*permissions_.isShown) {
        window_->hide();
        return;
    }
    if (!window_) makeWindow();
    window_->show();
}

void PermissionsWindow::makeWindow() {
    view_ = views_.make("permissions/PermissionsView",
                        {{"viewModel", QVariant::fromValue(&viewModel_)}});
    window_ = std::make_unique<QQuickWindow>();
    window_->setTitle("Larkspan");
    window_->setFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                      Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    window_->installEventFilter(this);
    view_->setParentItem(window_->contentItem());
    const QSize size = view_->size().toSize();
    window_->setMinimumSize(size);
    window_->setMaximumSize(size);
    QRect frame(QPoint(), size);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        frame.moveCenter(screen->availableGeometry().center());
    window_->setGeometry(frame);
}

bool PermissionsWindow::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::Close) return false;
    permissions_.close();
    return true;
}

} // namespace larkspan::ui
