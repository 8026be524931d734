#pragma once

#include "conversion/driver.hpp"
#include "conversion/output_buffer.hpp"
#include "foundation/kept_encoding.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

/// Conversions by the tables of an encoding, and from the first character that they do not know by a
/// converter.
///
/// `shared` may be null; `open()` returns the converter, as `UConverter *`, and is called at most once. The
/// results, also partial ones, and the exceptions are those of the converter alone.
namespace fl::i18n {

/// Converts what the tables can at the beginning of `source`, takes that off and gives each piece to
/// `take(units, length, consumed)`.
template <class Direction, class Take>
void convert_by_tables(kept_encoding const * shared,
                       std::basic_string_view<typename Direction::from> & source, Take take) {
    constexpr std::size_t piece_length = 1024;
    typename Direction::to buffer[piece_length * Direction::most_units];
    while (shared && !source.empty()) {
        auto const progress = Direction::by_tables(*shared, buffer, source.substr(0, piece_length));
        if (progress.consumed == 0) {
            return;
        }
        source.remove_prefix(progress.consumed);
        take(buffer, progress.produced, progress.consumed);
    }
}

/// Converts a text into a buffer, as `run_pass` does.
template <class Direction, class Open>
std::size_t convert_text_pass(kept_encoding const * shared, Open open, typename Direction::to * destination,
                              std::size_t capacity, std::basic_string_view<typename Direction::from> source) {
    std::size_t total = 0;
    auto const room = [&] { return capacity - std::min(total, capacity); };
    auto const next = [&] { return destination + std::min(total, capacity); };
    convert_by_tables<Direction>(shared, source, [&](auto const * units, std::size_t length, std::size_t) {
        std::copy_n(units, std::min(length, room()), next());
        total += length;
    });
    if (source.empty()) {
        return total;
    }
    return total + run_pass<Direction>(open(), next(), room(), source.data(), source.size());
}

/// Converts a text into a new string, as `run_driver` does.
template <class Direction, class Open>
std::basic_string<typename Direction::to>
convert_text(kept_encoding const * shared, Open open,
             std::basic_string_view<typename Direction::from> source) {
    std::basic_string<typename Direction::to> result;
    convert_by_tables<Direction>(shared, source,
                                 [&](auto const * units, std::size_t length, std::size_t consumed) {
                                     append_piece(result, units, length, consumed, source.size());
                                 });
    if (source.empty()) {
        return result;
    }
    auto rest = run_driver<Direction>(open(), source.data(), source.size());
    return result.empty() ? std::move(rest) : std::move(result.append(rest));
}

} // namespace fl::i18n
