#include "adapters/x11/X11Start.h"

#include "adapters/freedesktop/XdgFolders.h"
#include "adapters/qt/DefaultsFile.h"
#include "adapters/qt/QtApplication.h"
#include "adapters/x11/X11Desktop.h"
#include "adapters/x11/X11SystemLog.h"
#include "adapters/x11/connection/displayError.h"
#include "platform/DesktopPicture.h"
#include "platform/PanelDressing.h"

#include <filesystem>
#include <utility>

namespace larkspan::x11 {

namespace {

/// The desktop and what it needs until the program ends.
class X11Session final : public Desktop {
  public:
    X11Session(const freedesktop::Environment& environment, DesktopCallbacks callbacks)
        : callbacks_(std::move(callbacks))
        , folders_(environment)
        , defaults_(folders_.ownConfigFolder() + "/settings.json", callbacks_.report) {}

    /// Returns the error in one line if the desktop could not be opened.
    std::optional<std::string> open(Scheduler& scheduler,
                                    const freedesktop::Environment& environment) {
        std::error_code ignored;
        const auto program = std::filesystem::read_symlink("/proc/self/exe", ignored);
        auto opened = X11Desktop::open({.scheduler = scheduler,
                                        .defaults = defaults_,
                                        .application = application_,
                                        .systemLog = systemLog_,
                                        .environment = environment,
                                        .program = program.string(),
                                        .report = callbacks_.report,
                                        .gone = callbacks_.gone});
        if (auto* error = std::get_if<std::string>(&opened)) return std::move(*error);
        desktop_ = std::move(std::get<std::unique_ptr<X11Desktop>>(opened));
        return std::nullopt;
    }

    Platform platform() override { return desktop_->platform(); }
    PanelDressing& panelDressing() override { return desktop_->panelDressing(); }
    DesktopPicture& desktopPicture() override { return desktop_->desktopPicture(); }
    std::string appearanceFolder() const override { return folders_.configHome; }

  private:
    DesktopCallbacks callbacks_;
    freedesktop::XdgFolders folders_;
    X11SystemLog systemLog_{callbacks_.log};
    qt::QtApplication application_;
    qt::DefaultsFile defaults_;
    std::unique_ptr<X11Desktop> desktop_;
};

} // namespace

/// Without the screen number at the end of the display's name: one instance serves all screens.
std::string X11Start::instanceName() const {
    std::string display = environment_.value("DISPLAY");
    const auto colon = display.rfind(':');
    const auto dot = display.rfind('.');
    if (colon != std::string::npos && dot != std::string::npos && dot > colon) display.resize(dot);
    return "x11" + display;
}

std::optional<std::string> X11Start::unavailableReason() const {
    return displayError();
}

DesktopStart::Opened X11Start::open(Scheduler& scheduler, DesktopCallbacks callbacks) const {
    auto session = std::make_unique<X11Session>(environment_, std::move(callbacks));
    if (auto error = session->open(scheduler, environment_)) return std::move(*error);
    return session;
}

} // namespace larkspan::x11
