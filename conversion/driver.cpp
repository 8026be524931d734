#include "conversion/driver.hpp"

#include "conversion/conversion_error.hpp"

#include <algorithm>
#include <memory>
#include <vector>

namespace fl::i18n {

namespace {

/// Returns the most bytes that the converter makes of one character.
std::size_t max_char_size(UConverter const * converter) {
    return ucnv_getType(converter) == UCNV_UTF8 ? 4
                                                : static_cast<std::size_t>(ucnv_getMaxCharSize(converter));
}

/// Tells whether what a converter gives depends on where its source and its output are cut: these look ahead,
/// and forget when a call ends which group, script or window they are in.
bool minds_cuts(UConverter const * converter) {
    switch (auto const type = ucnv_getType(converter)) {
    case UCNV_SCSU:
    case UCNV_ISCII:
    case UCNV_COMPOUND_TEXT:
        return true;
    default:
        return type >= UCNV_LMBCS_1 && type <= UCNV_LMBCS_LAST;
    }
}

/// Converts a whole source in one call, with room for all of it, and hands out what the destination takes.
template <class Direction>
std::size_t run_uncut(UConverter * converter, typename Direction::to * destination, std::size_t capacity,
                      typename Direction::from const * source, std::size_t source_length) {
    std::vector<typename Direction::to> all(4 * source_length + 64);
    for (;;) {
        auto * next = all.data();
        auto const * from = source;
        UErrorCode status = U_ZERO_ERROR;
        Direction::step(converter, &next, all.data() + all.size(), &from, source + source_length, true,
                        &status);
        if (U_SUCCESS(status)) {
            auto const length = static_cast<std::size_t>(next - all.data());
            std::copy_n(all.data(), std::min(length, capacity), destination);
            return length;
        }
        if (status != U_BUFFER_OVERFLOW_ERROR) {
            throw_conversion_error(status);
        }
        ucnv_reset(converter);
        all.resize(2 * all.size());
    }
}

struct converter_resetter {
    void operator()(UConverter * converter) const noexcept { ucnv_reset(converter); }
};

} // namespace

template <class Direction>
std::size_t run_pass(UConverter * converter, typename Direction::to * destination, std::size_t capacity,
                     typename Direction::from const * source, std::size_t source_length,
                     driver_limits const & limits) {
    if (!converter) {
        throw_conversion_error(U_ILLEGAL_ARGUMENT_ERROR);
    }
    std::unique_ptr<UConverter, converter_resetter> const reset_at_end(converter);
    if (minds_cuts(converter)) {
        return run_uncut<Direction>(converter, destination, capacity, source, source_length);
    }
    typename Direction::to scratch[1024];
    std::size_t const piece_size = max_char_size(converter) * limits.destination_piece;
    auto const * const source_end = source + source_length;
    std::size_t total = 0;
    bool flush = false;
    while (!flush) {
        auto const chunk = std::min(static_cast<std::size_t>(source_end - source), limits.source_chunk);
        auto const * const chunk_end = source + chunk;
        flush = chunk_end == source_end;
        UErrorCode status = U_ZERO_ERROR;
        do {
            bool const counting = total >= capacity;
            auto * const piece = counting ? scratch : destination + total;
            auto * const piece_end =
                piece + std::min(piece_size, counting ? std::size(scratch) : capacity - total);
            auto * next = piece;
            status = U_ZERO_ERROR;
            Direction::step(converter, &next, piece_end, &source, chunk_end, flush, &status);
            total += static_cast<std::size_t>(next - piece);
        } while (status == U_BUFFER_OVERFLOW_ERROR);
        if (U_FAILURE(status)) {
            throw_conversion_error(status);
        }
    }
    return total;
}

template std::size_t run_pass<to_unicode_direction>(UConverter *, char16_t *, std::size_t, char const *,
                                                    std::size_t, driver_limits const &);
template std::size_t run_pass<from_unicode_direction>(UConverter *, char *, std::size_t, char16_t const *,
                                                      std::size_t, driver_limits const &);

} // namespace fl::i18n
