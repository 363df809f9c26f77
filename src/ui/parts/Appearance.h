#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace larkspan::ui {

/// What the desktop says about how views should look and move. Main thread only.
class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the bars")
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(bool reducesMotion READ reducesMotion NOTIFY changed)
    Q_PROPERTY(bool increasesContrast READ increasesContrast NOTIFY changed)

  public:
    struct Values {
        bool isDark = false;
        bool reducesMotion = false;
        bool increasesContrast = false;
        bool operator==(const Values&) const = default;
    };

    bool isDark() const { return values_.isDark; }
    bool reducesMotion() const { return values_.reducesMotion; }
    bool increasesContrast() const { return values_.increasesContrast; }
    void set(const Values& values);

  Q_SIGNALS:
    void changed();

  private:
    Values values_;
};

} // namespace larkspan::ui
