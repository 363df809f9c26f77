#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

#include <functional>

namespace larkspan::qt {

/// The QCoreApplication of the test program; it reads no arguments.
inline QCoreApplication& testApplication() {
    static int count = 1;
    static char name[] = "qt_tests";
    static char* arguments[] = {name, nullptr};
    static QCoreApplication application(count, arguments);
    return application;
}

/// Runs the loop until the condition is true; returns false if the limit is reached first.
inline bool runUntil(const std::function<bool()>& condition, int limitMilliseconds = 5000) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > limitMilliseconds) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

} // namespace larkspan::qt
