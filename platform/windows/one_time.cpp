#include "platform/platform.hpp"

#include <system_error>
#include <windows.h>

namespace fl::platform {

void one_time::run(void (*action)(void *), void * context) {
    static_assert(sizeof(INIT_ONCE) == sizeof(void *) && alignof(INIT_ONCE) == alignof(void *));
    auto * const once = reinterpret_cast<PINIT_ONCE>(&state_);
    BOOL pending = FALSE;
    if (!InitOnceBeginInitialize(once, 0, &pending, nullptr)) {
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
    }
    if (!pending) {
        return;
    }
    try {
        action(context);
    } catch (...) {
        InitOnceComplete(once, INIT_ONCE_INIT_FAILED, nullptr);
        throw;
    }
    InitOnceComplete(once, 0, nullptr);
}

} // namespace fl::platform
