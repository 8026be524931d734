#pragma once

#include <emmintrin.h>
#include <mutex>

namespace fl {

/// A mutex for work that mostly takes a few nanoseconds: who finds it taken tries again for some microseconds
/// before it sleeps, as falling asleep and being woken costs more than most waits.
class spinning_mutex {
public:
    void lock() {
        // Each failed attempt takes the cache line away from the holder, so that they become rarer.
        for (int pauses = 1; pauses <= 256; pauses *= 2) {
            if (mutex_.try_lock()) {
                return;
            }
            for (int i = 0; i < pauses; ++i) {
                _mm_pause();
            }
        }
        mutex_.lock();
    }
    void unlock() { mutex_.unlock(); }

private:
    std::mutex mutex_;
};

} // namespace fl
