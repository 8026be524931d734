#pragma once

#include <emmintrin.h>
#include <mutex>

namespace fl {

/// A mutex for work that mostly takes a few nanoseconds: who finds it taken tries again for some microseconds
/// before it sleeps, as falling asleep and being woken costs more than most waits.
class spinning_mutex {
public:
    void lock() {
        constexpr int tries = 200;
        for (int i = 0; i < tries; ++i) {
            if (mutex_.try_lock()) {
                return;
            }
            _mm_pause();
        }
        mutex_.lock();
    }
    void unlock() { mutex_.unlock(); }

private:
    std::mutex mutex_;
};

} // namespace fl
