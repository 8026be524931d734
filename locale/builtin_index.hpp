#pragma once

#include "foundation/ascii.hpp"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fl::i18n::lcmgmt {

/// Finds the rows of a constant table by one member, made by the compiler: a hash table of row numbers.
template <class Row, std::size_t Size, class Equal>
class builtin_index {
public:
    constexpr builtin_index(Row const (&rows)[Size], std::string_view Row::*key)
        : rows_(rows)
        , key_(key) {
        for (std::size_t i = 0; i < Size; ++i) {
            std::size_t slot = first_slot(rows[i].*key);
            while (slots_[slot] != 0) {
                slot = next_slot(slot);
            }
            slots_[slot] = static_cast<std::uint16_t>(i + 1);
        }
    }

    /// Returns the row with a key; null when there is none.
    Row const * find(std::string_view key) const {
        for (std::size_t slot = first_slot(key); slots_[slot] != 0; slot = next_slot(slot)) {
            Row const & row = rows_[slots_[slot] - 1];
            if (Equal()(row.*key_, key)) {
                return &row;
            }
        }
        return nullptr;
    }

private:
    static constexpr std::size_t slot_count = std::bit_ceil(2 * Size);

    static constexpr std::size_t first_slot(std::string_view key) {
        return ascii::hash_ignoring_case()(key) % slot_count;
    }
    static constexpr std::size_t next_slot(std::size_t slot) { return (slot + 1) % slot_count; }

    Row const * rows_;
    std::string_view Row::*key_;
    std::array<std::uint16_t, slot_count> slots_{};
};

} // namespace fl::i18n::lcmgmt
