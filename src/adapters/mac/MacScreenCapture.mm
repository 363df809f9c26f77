#include "adapters/mac/MacScreenCapture.h"

#include <CoreGraphics/CoreGraphics.h>

namespace larkspan::mac {

bool MacScreenCapture::preflightAccess() const {
    return CGPreflightScreenCaptureAccess();
}

bool MacScreenCapture::requestAccess() {
    return CGRequestScreenCaptureAccess();
}

} // namespace larkspan::mac
