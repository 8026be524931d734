#include "platform/platform.hpp"

#include <atomic>

namespace fl::platform {

namespace {

char running_mark;
char done_mark;

} // namespace

void one_time::run(void (*action)(void *), void * context) {
    std::atomic_ref<void *> const state(state_);
    for (;;) {
        void * seen = nullptr;
        if (state.compare_exchange_strong(seen, &running_mark, std::memory_order_acquire)) {
            break;
        }
        if (seen == &done_mark) {
            return;
        }
        state.wait(&running_mark, std::memory_order_acquire);
    }
    try {
        action(context);
    } catch (...) {
        state.store(nullptr, std::memory_order_release);
        state.notify_all();
        throw;
    }
    state.store(&done_mark, std::memory_order_release);
    state.notify_all();
}

} // namespace fl::platform
