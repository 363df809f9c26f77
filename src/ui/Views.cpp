#include "ui/Views.h"

#include <QQmlComponent>
#include <QtGlobal>

extern void qml_register_types_Larkspan();

// The toolkit's macros for resources only work outside any namespace.
static void initialiseResources() {
    Q_INIT_RESOURCE(qmake_Larkspan);
    Q_INIT_RESOURCE(larkspan_ui_raw_qml_0);
    Q_INIT_RESOURCE(qmlcache_larkspan_ui);
}

namespace larkspan::ui {

Views::Views() {
    // Named here, since the linker leaves out of a static library what nobody names.
    initialiseResources();
    qml_register_types_Larkspan();
    engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
}

std::unique_ptr<QQuickItem> Views::make(const QString& name, const QVariantMap& properties) {
    QQmlComponent component(&engine_,
                            QUrl(QStringLiteral("qrc:/qt/qml/Larkspan/%1.qml").arg(name)));
    if (!component.isReady()) qFatal("%s", qPrintable(component.errorString()));
    auto* item = qobject_cast<QQuickItem*>(component.createWithInitialProperties(properties));
    if (!item) qFatal("%s", qPrintable(component.errorString()));
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    return std::unique_ptr<QQuickItem>(item);
}

} // namespace larkspan::ui
