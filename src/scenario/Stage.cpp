#include "scenario/Stage.h"

#include "scenario/SimBarPanels.h"

#include <utility>

namespace larkspan::sim {

Stage::Stage(AppController::MakeBarPanels makeBarPanels)
    : makeBarPanels_(std::move(makeBarPanels)) {
    if (!makeBarPanels_)
        makeBarPanels_ = [](AppController&) { return std::make_unique<SimBarPanels>(); };
    mac.application.onTerminate = [this] {
        if (delegate_) delegate_->willTerminate();
        end();
    };
}

Stage::~Stage() {
    end();
}

void Stage::start() {
    if (delegate_) {
        delegate_->shouldHandleReopen();
        return;
    }
    mac.application.isTerminating = false;
    delegate_ = std::make_unique<AppDelegate>(mac.platform(), makeBarPanels_);
    if (onStart) onStart(delegate_->controller());
    delegate_->didFinishLaunching();
}

void Stage::quit() {
    if (delegate_) mac.application.terminate();
}

void Stage::kill(std::size_t survivors) {
    end();
    mac.programKilled(survivors);
}

void Stage::end() {
    if (delegate_ && onEnd) onEnd();
    delegate_.reset();
    mac.programEnded();
}

} // namespace larkspan::sim
