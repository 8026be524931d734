#pragma once

#include "foundation/hash.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace fl::i18n {

/// Says where a message lies among the units of its store: its key, two bytes in a unit, and behind it its
/// text.
struct message_slot {
    static constexpr std::uint32_t free = 0xFFFFFFFF;

    std::uint32_t hash = 0;
    std::uint32_t begin = 0; ///< in units
    std::uint32_t key_bytes = 0;
    std::uint32_t text_units = free;

    bool is_free() const { return text_units == free; }
};

/// The messages of a store, by key: a view, which is valid while the store lives and is not changed.
///
/// The slots are a hash table with linear probing; their number is a power of two, and one of them is free.
class message_texts {
public:
    constexpr message_texts() = default;
    message_texts(char16_t const * units, std::span<message_slot const> slots)
        : units_(units)
        , slots_(slots.data())
        , mask_(slots.size() - 1) {}

    /// Tells whether there is a store behind the view; the other operations need one.
    explicit operator bool() const { return slots_ != nullptr; }

    std::optional<std::u16string_view> find(std::string_view key) const {
        // Begins to fetch the messages of a small store, while its slots come. There may be fewer than these,
        // or none: the addresses are plain numbers.
        auto const address = reinterpret_cast<std::uintptr_t>(units_);
        __builtin_prefetch(reinterpret_cast<void const *>(address));
        __builtin_prefetch(reinterpret_cast<void const *>(address + 64));
        message_slot const & slot = slots_[find_slot(key, hash(key))];
        return slot.is_free() ? std::nullopt : std::optional(text(slot));
    }

    /// Returns the slot of a key with this hash, or the free one where it is to be put.
    std::size_t find_slot(std::string_view key, std::uint32_t hash) const {
        std::size_t i = hash & mask_;
        while (!slots_[i].is_free() && (slots_[i].hash != hash || !equal_text(this->key(slots_[i]), key))) {
            i = (i + 1) & mask_;
        }
        return i;
    }

    std::span<message_slot const> slots() const { return {slots_, mask_ + 1}; }
    std::string_view key(message_slot const & slot) const {
        return {reinterpret_cast<char const *>(units_ + slot.begin), slot.key_bytes};
    }
    std::u16string_view text(message_slot const & slot) const {
        return {units_ + slot.begin + (slot.key_bytes + 1) / sizeof(char16_t), slot.text_units};
    }

    /// Returns a hash that nobody can foresee who writes a catalog: keys that collide would make a table
    /// slow.
    static std::uint32_t hash(std::string_view key) {
        // The system puts the library where nobody knows, anew for each process.
        auto const seed = reinterpret_cast<std::uintptr_t>(&place_);
        return static_cast<std::uint32_t>(hash_text(key, seed));
    }

private:
    static constexpr char place_ = '\0';

    char16_t const * units_ = nullptr;
    message_slot const * slots_ = nullptr;
    std::size_t mask_ = 0;
};

} // namespace fl::i18n
