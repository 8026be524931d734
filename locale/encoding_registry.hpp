#pragma once

#include "foundation/kept_encoding.hpp"

#include <array>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace fl::i18n::lcmgmt {

/// The encodings that the process has met, each once, and the first few hundred names by which they were
/// asked for.
///
/// Any thread may call `find` at any time; calls of `add` exclude each other.
class encoding_registry {
public:
    /// Returns the encoding of a remembered name; null for any other name. Takes no lock.
    kept_encoding const * find(std::string_view name) const noexcept;

    /// Returns the encoding of a converter that was opened by a name, and remembers the name while there is
    /// room.
    kept_encoding const * add(std::string const & name, icu_converter converter);

private:
    static constexpr std::size_t slot_count = 512;

    /// The ends of a name, each of up to eight characters, which together are most names.
    struct name_ends {
        explicit name_ends(std::string_view name) noexcept;
        bool operator==(name_ends const &) const = default;
        std::uint64_t first = 0;
        std::uint64_t last = 0;
        std::size_t length;
        bool are_all() const noexcept { return length <= 2 * sizeof first; }
        std::size_t first_place() const noexcept {
            return (((first ^ (last >> 7) ^ length) * 0x9E3779B97F4A7C15) >> 32) % slot_count;
        }
    };
    struct named_encoding {
        name_ends ends;
        std::string name;
        kept_encoding const * encoding;
    };

    /// Searches for a name wherever it may be.
    kept_encoding const * find_further(std::string_view name) const noexcept;

    struct place {
        std::size_t slot;             ///< of the name, or the free one where it would be, or `slot_count`
        named_encoding const * found; ///< null when the slot is free
    };
    /// Looks at each slot once, as another thread may fill a free one at any time, also with another name.
    place place_of(std::string_view name) const noexcept;

    /// A name is in the first free slot from that of its hash on; slots are filled once.
    std::array<std::atomic<named_encoding const *>, slot_count> slots_{};
    std::vector<std::unique_ptr<named_encoding const>> names_;
    /// By the converter's own name; one with options by the name that gave it, as its own name may leave them
    /// out.
    std::map<std::string, std::unique_ptr<kept_encoding const>> encodings_;
};

inline encoding_registry::name_ends::name_ends(std::string_view name) noexcept
    : length(name.size()) {
    if (length >= sizeof first) {
        std::memcpy(&first, name.data(), sizeof first);
        std::memcpy(&last, name.data() + length - sizeof last, sizeof last);
    } else {
        for (char const c : name) {
            first = first << 8 | static_cast<unsigned char>(c);
        }
    }
}

inline kept_encoding const * encoding_registry::find(std::string_view name) const noexcept {
    name_ends const ends(name);
    auto const * const first = slots_[ends.first_place()].load(std::memory_order_acquire);
    return first && first->ends == ends && ends.are_all() ? first->encoding : find_further(name);
}

} // namespace fl::i18n::lcmgmt
