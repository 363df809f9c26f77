#include "adapters/qt/ControlSocket.h"
#include "adapters/qt/QtScheduler.h"
#include "adapters/qt/WholeFile.h"
#include "app/AppDelegate.h"
#include "control/CommandLine.h"
#include "control/Control.h"
#include "platform/Desktop.h"
#include "ui/bar/QuickBarPanels.h"
#include "ui/demo/Demo.h"
#include "ui/parts/AppearanceWatch.h"
#include "ui/parts/Environment.h"
#include "ui/parts/Views.h"
#include "ui/permissions/PermissionsWindow.h"
#ifdef __APPLE__
#include "adapters/mac/MacStart.h"
#else
#include "adapters/x11/X11Start.h"
#endif

#include <QGuiApplication>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fmt/format.h>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace larkspan {
namespace {

constexpr int failed = static_cast<int>(ExitCode::failed);

void print(std::FILE* stream, const std::string& text) {
    if (!text.empty()) std::fputs((text + '\n').c_str(), stream);
}

void printError(const std::string& line) {
    print(stderr, "larkspan: " + line);
}

std::optional<ControlAnswer> ask(const std::string& instance,
                                 const std::vector<std::string>& words) {
    const auto line = qt::ControlSocket::request(instance, Control::requestLine(words));
    return line ? std::optional(ControlAnswer::fromLine(*line)) : std::nullopt;
}

ExitCode show(const std::optional<ControlAnswer>& answer) {
    if (!answer) {
        printError("no running instance");
        return ExitCode::failed;
    }
    if (answer->code == ExitCode::succeeded)
        print(stdout, answer->text);
    else
        printError(answer->text);
    return answer->code;
}

ExitCode request(const std::string& instance, const std::vector<std::string>& words) {
    return show(ask(instance, words));
}

/// Why the file cannot be written or replaced; absent if it can be tried.
std::optional<std::string> fileRefusalReason(const std::filesystem::path& file) {
    std::error_code error;
    const auto folder = file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
    if (!std::filesystem::is_directory(folder, error))
        return fmt::format("there is no folder {}", folder.string());
    // A device would be replaced instead of written to.
    if (std::filesystem::exists(file, error) && !std::filesystem::is_regular_file(file, error))
        return fmt::format("{} is not a regular file", file.string());
    return std::nullopt;
}

/// Written here and not by the running instance: the path is relative to our working directory.
ExitCode saveLog(const std::string& instance, const std::string& file) {
    const auto answer = ask(instance, {"log"});
    if (!answer || answer->code != ExitCode::succeeded) return show(answer);
    auto error = fileRefusalReason(file);
    if (!error && !qt::WholeFile(file).write(answer->text + '\n'))
        error = fmt::format("cannot write {}: {}", file, std::strerror(errno));
    if (!error) return ExitCode::succeeded;
    printError(*error);
    return ExitCode::rejected;
}

/// Prints errors to the terminal at once, and writes them to the diagnostics log as soon as it
/// exists.
class Reports {
  public:
    void operator()(const std::string& line) {
        printError(line);
        if (log_)
            log_->write("app", line);
        else
            early_.push_back(line);
    }
    void attach(DiagnosticsLog& log) {
        log_ = &log;
        for (const auto& line : early_)
            log.write("app", line);
    }
    /// Call before the log is destroyed.
    void detach() { log_ = nullptr; }

  private:
    DiagnosticsLog* log_ = nullptr;
    std::vector<std::string> early_;
};

/// `time` is the date in seconds. Any thread.
void showLine(double time, const std::string& line) {
    print(stderr, fmt::format("{:.3f} {}", time, line));
}

Handle logToTerminal(DiagnosticsLog& log) {
    return log.subscribe([](const DiagnosticsLog::Line& line) {
        showLine(line.time, line.category + ": " + line.text);
    });
}

/// The bar on this desktop, from start to end.
class Program {
  public:
    Program(const DesktopStart& start, bool isLogged)
        : start_(start)
        , isLogged_(isLogged) {}

    /// Returns the exit code of the process.
    int run() {
        const std::string name = start_.instanceName();
        const auto listening = qt::ControlSocket::listen(
            name, [this](const std::string& line, qt::ControlSocket::Reply reply) {
                answer(line, std::move(reply));
            });
        // Another process has just started as the bar.
        if (listening.isTaken) return static_cast<int>(request(name, {"reopen"}));
        if (!listening.socket) reports_("cannot receive commands: " + listening.failure);

        const auto opened = start_.open(scheduler_, callbacks());
        if (const auto* error = std::get_if<std::string>(&opened)) {
            print(stderr, *error);
            return failed;
        }
        const int code = runOn(*std::get<std::unique_ptr<Desktop>>(opened));
        // A read may still be using the desktop, which is destroyed next.
        scheduler_.endQueues();
        return code;
    }

  private:
    DesktopCallbacks callbacks() {
        return {
            .report = [this](const std::string& line) { reports_(line); },
            .gone =
                [](const std::string& line) {
                    print(stderr, line);
                    QCoreApplication::exit(failed);
                },
            .reopened = [this] { answer(Control::requestLine({"reopen"}), [](const auto&) {}); },
            .log = isLogged_
                       ? [this](const std::string& line) { showLine(scheduler_.wallClock(), line); }
                       : std::function<void(const std::string&)>()};
    }

    int runOn(Desktop& desktop) {
        ui::Appearance appearance;
        const ui::AppearanceWatch watch(appearance,
                                        QString::fromStdString(desktop.appearanceFolder()));
        ui::Views views;
        AppDelegate delegate(desktop.platform(), [&](AppController& controller) {
            return std::make_unique<ui::QuickBarPanels>(controller.look(), views, appearance,
                                                        desktop.panelDressing(),
                                                        desktop.desktopPicture());
        });
        const ui::PermissionsWindow permissions(delegate.controller().permissions(), views,
                                                appearance);
        auto& log = delegate.controller().log();
        const Handle logging = isLogged_ ? logToTerminal(log) : Handle();
        reports_.attach(log);
        delegate.didFinishLaunching();
        control_.emplace(delegate);
        const int code = QCoreApplication::exec();
        control_.reset();
        delegate.willTerminate();
        reports_.detach();
        return code;
    }

    /// Requests arrive from the run loop only, so the control exists, except while the program
    /// ends.
    void answer(const std::string& line, qt::ControlSocket::Reply reply) {
        if (!control_)
            return reply(
                ControlAnswer{ExitCode::failed, "the running instance is quitting"}.toLine());
        control_->answerLine(line, std::move(reply));
    }

    const DesktopStart& start_;
    bool isLogged_;
    Reports reports_;
    qt::QtScheduler scheduler_;
    std::optional<Control> control_;
};

int runOnDesktop(const DesktopStart& desktop, bool isLogged, int& argc, char** argv) {
    if (const auto reason = desktop.unavailableReason()) {
        printError(*reason);
        return failed;
    }
    // A second start reopens the first; check before anything is loaded.
    if (const auto answer = ask(desktop.instanceName(), {"reopen"}))
        return static_cast<int>(answer->code);
    ui::prepareEnvironment();
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName("larkspan");
    QGuiApplication::setApplicationDisplayName("Larkspan");
    QGuiApplication::setApplicationVersion(LARKSPAN_VERSION);
    return Program(desktop, isLogged).run();
}

/// The bar on a simulated Mac: in a window, or without one and in virtual time.
int simulate(const CommandLine& line, const DesktopStart& desktop, int& argc, char** argv) {
    const bool hasWindow = line.action == CommandLine::Action::demo;
    if (hasWindow) {
        if (const auto reason = desktop.unavailableReason()) {
            printError(*reason);
            return failed;
        }
    } else {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    ui::prepareEnvironment();
    const QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName("larkspan");
    if (hasWindow) return ui::runDemo(line.scenario);
    return static_cast<int>(ui::runScenario(line.scenario, line.picturesFolder, line.stateFile));
}

int perform(const CommandLine& line, const DesktopStart& desktop, int& argc, char** argv) {
    using Action = CommandLine::Action;
    switch (line.action) {
    case Action::start:
        return runOnDesktop(desktop, line.isLogged, argc, argv);
    case Action::request:
        if (line.words.size() == 2 && line.words[0] == "log")
            return static_cast<int>(saveLog(desktop.instanceName(), line.words[1]));
        return static_cast<int>(request(desktop.instanceName(), line.words));
    case Action::help:
        std::fputs(helpText(), stdout);
        return 0;
    case Action::version:
        print(stdout, "larkspan " LARKSPAN_VERSION);
        return 0;
    case Action::reject:
        printError(line.error);
        return static_cast<int>(ExitCode::rejected);
    case Action::demo:
    case Action::scenario:
        return simulate(line, desktop, argc, argv);
    }
    return failed;
}

} // namespace
} // namespace larkspan

int main(int argc, char** argv) {
#ifdef __APPLE__
    const larkspan::mac::MacStart desktop;
#else
    const larkspan::x11::X11Start desktop;
#endif
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    return larkspan::perform(larkspan::parseCommandLine(arguments), desktop, argc, argv);
}
