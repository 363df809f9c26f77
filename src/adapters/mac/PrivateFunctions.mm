#include "adapters/mac/PrivateFunctions.h"

#include <dlfcn.h>

namespace larkspan::mac {

// AppKit has already loaded these. There may be no file at the path: the system keeps them in a
// shared cache.
constexpr const char* libraries[] = {
    "/System/Library/PrivateFrameworks/SkyLight.framework/SkyLight",
    "/System/Library/Frameworks/ApplicationServices.framework/Frameworks/HIServices.framework/"
    "HIServices",
};

void* PrivateFunctions::loadedSymbol(const char* name) {
    if (void* found = dlsym(RTLD_DEFAULT, name)) return found;
    for (const char* library : libraries) {
        void* handle = dlopen(library, RTLD_LAZY);
        if (handle == nullptr) continue;
        if (void* found = dlsym(handle, name)) return found;
    }
    return nullptr;
}

} // namespace larkspan::mac
