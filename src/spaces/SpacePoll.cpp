#include "spaces/SpacePoll.h"

#include "spaces/SpaceMapReader.h"

#include <fmt/format.h>

#include <atomic>
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

/// What reads share with the poller, and may outlive it.
struct SpacePoll::State {
    std::mutex mutex;
    /// Nullptr once the poller has ended.
    const WindowServer* server = nullptr;
    SpaceSwitchLog* log = nullptr;
    std::optional<SpaceId> activeSpace;
    /// A slow answer does not let reads pile up.
    std::atomic<bool> isReading = false;

    void read(const std::string& inUse) {
        const std::lock_guard lock(mutex);
        if (server) compare(currentSpace(*server, inUse));
        isReading = false;
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
                     std::function<std::string()> displayInUse)
    : scheduler_(scheduler)
    , displayInUse_(std::move(displayInUse))
    , state_(std::make_shared<State>()) {
    state_->server = &server;
    state_->log = &log;
    startTimer();
    beat();
}

SpacePoll::~SpacePoll() {
    const std::lock_guard lock(state_->mutex);
    state_->server = nullptr;
}

void SpacePoll::setFast(bool isFast) {
    if (std::exchange(isFast_, isFast) != isFast) startTimer();
}

void SpacePoll::startTimer() {
    timer_ = scheduler_.every(isFast_ ? fastInterval : slowInterval, [this] { beat(); });
}

void SpacePoll::beat() {
    if (state_->isReading.exchange(true)) return;
    scheduler_.queue(pollQueue).post(
        [state = state_, inUse = displayInUse_()] { state->read(inUse); });
}

} // namespace larkspan
