#include "adapters/freedesktop/launch/watchProcessExit.h"

#include "adapters/qt/watchReadable.h"

#include <memory>
#include <utility>

#include <sys/syscall.h>
#include <unistd.h>

namespace larkspan::freedesktop {

// A process's descriptor becomes readable when it has ended, so nothing needs to be polled.
Handle watchProcessExit(ProcessId process, std::function<void()> ended) {
    const auto descriptor = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    if (descriptor < 0) return {};
    auto watch = std::make_shared<Handle>(qt::watchReadable(descriptor, std::move(ended)));
    return Handle([watch, descriptor] {
        watch->reset();
        close(descriptor);
    });
}

} // namespace larkspan::freedesktop
