#pragma once

#include "platform/platform.hpp"

#include <atomic>
#include <memory>

namespace fl {

/// An object of the process: made on first use and never destroyed.
///
/// So it serves threads that still run when the process ends, and the destructors of static objects. To be
/// defined at namespace scope (`constinit`).
template <class T>
class process_singleton {
public:
    constexpr process_singleton() = default;
    process_singleton(process_singleton const &) = delete;
    process_singleton & operator=(process_singleton const &) = delete;

    /// Returns the object, which the first call makes with `make`, a function that returns
    /// `std::unique_ptr<T>`.
    ///
    /// When `make` throws, the exception passes on and the next call tries again. It must not ask for this
    /// object.
    template <class Make>
    T & get(Make make) {
        if (T * const object = peek()) {
            return *object;
        }
        struct creation {
            process_singleton * self;
            Make * make;
        } context{this, &make};
        once_.run(
            [](void * p) {
                auto & c = *static_cast<creation *>(p);
                c.self->object_.store((*c.make)().release(), std::memory_order_release);
            },
            &context);
        return *peek();
    }

    /// Returns the object default-constructed on first use.
    T & get() {
        return get([] { return std::make_unique<T>(); });
    }

    /// Returns the object, or null while nobody has made it.
    T * peek() const { return object_.load(std::memory_order_acquire); }

private:
    platform::one_time once_;
    std::atomic<T *> object_ = nullptr;
};

} // namespace fl
