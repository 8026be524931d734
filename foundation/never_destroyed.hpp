#pragma once

namespace fl {

/// A constant-initialised object whose destructor never runs, for those that have one.
///
/// So it serves threads that still run when the process ends, as a `process_singleton` does. To be defined at
/// namespace scope (`constinit`).
template <class T>
union never_destroyed {
    constexpr never_destroyed()
        : object() {}
    constexpr ~never_destroyed() {}
    never_destroyed(never_destroyed const &) = delete;
    never_destroyed & operator=(never_destroyed const &) = delete;

    T object;
};

} // namespace fl
