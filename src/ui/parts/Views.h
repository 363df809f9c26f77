#pragma once

#include <QQmlEngine>
#include <QQuickItem>
#include <QString>
#include <QVariantMap>

#include <memory>

namespace larkspan::ui {

/// The views that are compiled into the program, by name. What makes them is loaded with the first
/// of them.
class Views {
  public:
    /// An instance of ui/`name`.qml, such as "bar/Tile", with those properties. Stops the program
    /// when the view does not compile: it is part of the program.
    std::unique_ptr<QQuickItem> make(const QString& name, const QVariantMap& properties);

  private:
    QQmlEngine& engine();

    std::unique_ptr<QQmlEngine> engine_;
};

} // namespace larkspan::ui
