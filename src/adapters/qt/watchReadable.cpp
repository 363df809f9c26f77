#include "adapters/qt/watchReadable.h"

#include <QPointer>
#include <QSocketNotifier>

#include <utility>

namespace larkspan::qt {

namespace {

Handle watch(int descriptor, QSocketNotifier::Type type, std::function<void()> callback) {
    auto* notifier = new QSocketNotifier(descriptor, type);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, std::move(callback));
    return Handle([pointer = QPointer(notifier)] {
        if (!pointer) return;
        // Disabled at once, so that the caller may close the descriptor; deleted later, since the
        // handle may end inside the callback.
        pointer->setEnabled(false);
        pointer->disconnect();
        pointer->deleteLater();
    });
}

} // namespace

Handle watchReadable(int descriptor, std::function<void()> callback) {
    return watch(descriptor, QSocketNotifier::Read, std::move(callback));
}

Handle watchWritable(int descriptor, std::function<void()> callback) {
    return watch(descriptor, QSocketNotifier::Write, std::move(callback));
}

} // namespace larkspan::qt
