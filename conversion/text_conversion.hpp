#pragma once

#include "conversion/driver.hpp"
#include "conversion/output_buffer.hpp"
#include "foundation/icu_converter.hpp"
#include "foundation/kept_encoding.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// Conversions by the tables of an encoding, and from the first character that they do not know by a
/// converter.
///
/// `shared` may be null; `open(own)` returns the converter for a pass, as `UConverter *`, which `own` may
/// hold. The results, also partial ones, and the exceptions are those of the converter alone.
namespace fl::i18n {

/// The source units that tables get at once, and room for what they become.
inline constexpr std::size_t table_piece = 1024;
template <class Direction>
using table_buffer = std::array<typename Direction::to, table_piece * Direction::most_units>;

/// Converts what the tables can, of one piece, at the beginning of `source` and takes that off.
template <class Direction>
conversion_progress convert_piece(kept_encoding const * shared, table_buffer<Direction> & buffer,
                                  std::basic_string_view<typename Direction::from> & source) {
    if (!shared || source.empty()) {
        return {};
    }
    auto const progress = Direction::by_tables(*shared, buffer.data(), source.substr(0, table_piece));
    source.remove_prefix(progress.consumed);
    return progress;
}

/// Converts a text into a buffer, as `run_pass` does.
template <class Direction, class Open>
std::size_t convert_text_pass(kept_encoding const * shared, Open open, typename Direction::to * destination,
                              std::size_t capacity, std::basic_string_view<typename Direction::from> source) {
    table_buffer<Direction> buffer;
    std::size_t total = 0;
    std::size_t written = 0;
    while (auto const progress = convert_piece<Direction>(shared, buffer, source)) {
        std::size_t const length = std::min(progress.produced, capacity - written);
        std::copy_n(buffer.data(), length, destination + written);
        written += length;
        total += progress.produced;
    }
    if (source.empty()) {
        return total;
    }
    icu_converter own;
    return total + run_pass<Direction>(open(own), destination + written, capacity - written, source.data(),
                                       source.size());
}

/// Returns a text of which the tables have converted one piece, or the beginning of that, with the rest of
/// it.
template <class Direction, class Open>
[[gnu::noinline]] std::basic_string<typename Direction::to>
convert_further(kept_encoding const * shared, Open open, table_buffer<Direction> & buffer,
                conversion_progress progress, std::basic_string_view<typename Direction::from> source) {
    std::basic_string<typename Direction::to> result;
    source.remove_prefix(progress.consumed);
    for (; progress; progress = convert_piece<Direction>(shared, buffer, source)) {
        append_piece(result, buffer.data(), progress.produced, progress.consumed, source.size());
    }
    if (source.empty()) {
        return result;
    }
    icu_converter own;
    auto rest = collect_output<typename Direction::to>(
        source.size(), {}, [&](auto * destination, std::size_t capacity) {
            return run_pass<Direction>(open(own), destination, capacity, source.data(), source.size());
        });
    if (result.empty()) {
        return rest;
    }
    result.append(rest);
    return result;
}

/// Converts a text into a new string, as `run_driver` does.
template <class Direction, class Open>
std::basic_string<typename Direction::to>
convert_text(kept_encoding const * shared, Open open,
             std::basic_string_view<typename Direction::from> source) {
    table_buffer<Direction> buffer;
    if (!shared) {
        return convert_further<Direction>(shared, open, buffer, {}, source);
    }
    auto const [consumed, produced] =
        Direction::by_tables(*shared, buffer.data(), source.substr(0, table_piece));
    if (consumed == source.size()) {
        return {buffer.data(), produced};
    }
    return convert_further<Direction>(shared, open, buffer, {consumed, produced}, source);
}

} // namespace fl::i18n
