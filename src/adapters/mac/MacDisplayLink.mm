#include "adapters/mac/MacDisplayLink.h"

#import <CoreVideo/CoreVideo.h>

#include <memory>
#include <utility>

namespace larkspan::mac {

// The link calls on its own thread. A posted call that arrives after the end finds no callback.
Handle MacDisplayLink::start(std::function<void()> frameDrawn) {
    CVDisplayLinkRef link = nullptr;
    if (CVDisplayLinkCreateWithActiveCGDisplays(&link) != kCVReturnSuccess) return {};
    const auto callback = std::make_shared<std::function<void()>>(std::move(frameDrawn));
    CVDisplayLinkSetOutputHandler(link,
                                  ^CVReturn(CVDisplayLinkRef, const CVTimeStamp*,
                                            const CVTimeStamp*, CVOptionFlags, CVOptionFlags*) {
                                    dispatch_async(dispatch_get_main_queue(), ^{
                                      // A copy: the callback may end the link.
                                      if (const auto drawn = *callback) drawn();
                                    });
                                    return kCVReturnSuccess;
                                  });
    CVDisplayLinkStart(link);
    return Handle([link, callback] {
        *callback = nullptr;
        CVDisplayLinkStop(link);
        CVDisplayLinkRelease(link);
    });
}

} // namespace larkspan::mac
