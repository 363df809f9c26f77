#include "spaces/SpacePoll.h"

#include "spaces/SpaceMapReader.h"

#include <fmt/format.h>

#include <mutex>
#include <optional>
#include <utility>

namespace larkspan {
namespace {

constexpr const char* pollQueue = "com.tessaly.Vantrel.SpaceSwitchLog";

std::optional<SpaceId> currentSpace(const WindowServer& server, const std::string& inUse) {
    const auto displays = server.managedDisplaySpaces();
    if (!displays) return std::nullopt;
    for (const auto& display : *displays) {
        const bool isInUse = inUse.empty() || display.displayIdentifier == inUse ||
                             display.displayIdentifier == sharedSpacesIdentifier;
        if (isInUse && display.currentSpace) return display.currentSpace->id64;
    }
    return std::nullopt;
}

} // namespace

/// Shared by the reads and the poller, which they may outlive.
struct SpacePoll::State {
    std::mutex mutex;
    /// nullptr once the poller has ended.
    const WindowServer* server = nullptr;
    SpaceSwitchLog* log = nullptr;
    // The members below belong to the queue.
    std::string displayInUse;
    std::optional<SpaceId> activeSpace;

    void read() {
        const std::lock_guard lock(mutex);
        if (server) compare(currentSpace(*server, displayInUse));
    }

  private:
    void compare(std::optional<SpaceId> space) {
        if (!space) return;
        const auto before = std::exchange(activeSpace, space);
        if (!before || before == space) return;
        log->stamp("spaces",
                   fmt::format("Space of the display in use {}, before {}", *space, *before),
                   SpaceSwitchLog::Mark::starting);
    }
};

SpacePoll::SpacePoll(Scheduler& scheduler, const WindowServer& server, SpaceSwitchLog& log,
                     std::string displayInUse)
    : queue_(scheduler.queue(pollQueue))
    , displayInUse_(std::move(displayInUse))
    , state_(std::make_shared<State>()) {
    state_->server = &server;
    state_->log = &log;
    state_->displayInUse = displayInUse_;
    queue_.post([state = state_] { state->read(); });
    startTimer();
}

SpacePoll::~SpacePoll() {
    timer_.reset();
    const std::lock_guard lock(state_->mutex);
    state_->server = nullptr;
}

void SpacePoll::setDisplayInUse(const std::string& name) {
    if (name == displayInUse_) return;
    displayInUse_ = name;
    queue_.post([state = state_, name] { state->displayInUse = name; });
}

void SpacePoll::setFast(bool isFast) {
    if (std::exchange(isFast_, isFast) != isFast) startTimer();
}

void SpacePoll::startTimer() {
    timer_ =
        queue_.every(isFast_ ? fastInterval : slowInterval, [state = state_] { state->read(); });
}

} // namespace larkspan
