#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QString>

namespace larkspan::ui {

/// A sign of our own drawing under the name that a Mac gives it: "checkmark.circle.fill" and
/// "exclamationmark.circle.fill". Sharp at any size; an unknown name draws nothing.
class SymbolItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString symbol MEMBER symbol_ NOTIFY changed)
    /// Of the disc; what stands on it is white.
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)

  public:
    explicit SymbolItem(QQuickItem* parent = nullptr);
    void paint(QPainter* painter) override;

  Q_SIGNALS:
    void changed();

  private:
    QString symbol_;
    QColor color_;
};

} // namespace larkspan::ui
