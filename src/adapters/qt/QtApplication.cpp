#include "adapters/qt/QtApplication.h"

#include "adapters/qt/watchReadable.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMetaObject>
#include <QSysInfo>
#include <QWindow>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace larkspan::qt {

namespace {

// A signal handler can use only static data: the two ends of the pipe that brings the signal to the
// run loop.
std::array<int, 2> signalPipe{-1, -1};

void writeToPipe(int) {
    const char byte = 0;
    [[maybe_unused]] const auto written = write(signalPipe[1], &byte, 1);
}

void setHandler(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
}

} // namespace

QtApplication::QtApplication() {
    catchSignals();
}

QtApplication::~QtApplication() {
    if (signalPipe[0] < 0) return;
    setHandler(SIG_DFL);
    signalWatch_.reset();
    for (int& end : signalPipe) {
        close(end);
        end = -1;
    }
}

std::string QtApplication::description() const {
    const auto environment = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    return QStringLiteral("%1 %2 on %3, %4%5")
        .arg(QGuiApplication::applicationDisplayName(), QCoreApplication::applicationVersion(),
             QSysInfo::prettyProductName(), QGuiApplication::platformName(),
             environment.isEmpty() ? QString() : ", " + environment)
        .toStdString();
}

void QtApplication::catchSignals() {
    if (pipe(signalPipe.data()) != 0) return;
    for (const int end : signalPipe) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    signalWatch_ = watchReadable(signalPipe[0], [this] {
        std::array<char, 16> bytes{};
        while (::read(signalPipe[0], bytes.data(), bytes.size()) > 0) {
        }
        terminate();
    });
    setHandler(writeToPipe);
}

void QtApplication::activate() {
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr) return;
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        // Bars and labels never take the focus.
        if (!window->isVisible() || window->flags().testFlag(Qt::WindowDoesNotAcceptFocus))
            continue;
        window->raise();
        window->requestActivate();
    }
}

void QtApplication::terminate() {
    // Queued, since leaving a run loop that has not started yet has no effect.
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

} // namespace larkspan::qt
