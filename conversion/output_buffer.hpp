#pragma once

#include <algorithm>
#include <boost/throw_exception.hpp>
#include <cstddef>
#include <fl/i18n/converter.hpp>
#include <string>

namespace fl::i18n {

inline constexpr std::size_t stack_buffer_size = 1024;

/// The sizes of the first attempt at a conversion, in destination units.
struct output_limits {
    /// Sources up to this length are tried in a buffer of this size on the stack, at most
    /// `stack_buffer_size`.
    std::size_t stack = stack_buffer_size;
    /// The largest buffer that is allocated before the length of the result is known.
    std::size_t heap = 32768;
};

/// Returns what `pass` writes into a buffer of exactly `length` units.
///
/// `pass(destination, capacity)` returns the length of the full result; more than `length` is a failure.
template <class To, class Pass>
std::basic_string<To> collect_exactly(std::size_t length, Pass pass) {
    std::basic_string<To> result(length, To());
    std::size_t const written = pass(result.data(), length);
    if (written > length) {
        boost::throw_exception(CvtConversionFailure());
    }
    result.resize(written);
    return result;
}

/// Returns what a converter makes of a text, by the operations that a `const` converter offers.
template <class To, class From>
std::basic_string<To> convert_exactly(converter<To, From> const & with, From const * text,
                                      std::size_t length) {
    return collect_exactly<To>(
        with.get_destination_size(text, length),
        [&](To * destination, std::size_t size) { return with.convert(destination, size, text, length); });
}

/// Appends what one piece of a text became; `rest` units of the text are still to come.
///
/// The first piece tells how much room all will need, as most texts are alike from end to end; the string
/// grows where that is wrong. What a long text needs is not taken on trust.
template <class To>
void append_piece(std::basic_string<To> & result, To const * piece, std::size_t length, std::size_t consumed,
                  std::size_t rest) {
    if (result.empty() && rest != 0) {
        constexpr std::size_t most_reserved = std::size_t(1) << 22;
        std::size_t const estimate = length + length * rest / consumed;
        result.reserve(std::min(estimate + estimate / 16, most_reserved));
    }
    result.append(piece, length);
}

/// Returns the full result of `pass`, which runs at most twice.
///
/// `pass(destination, capacity)` converts the whole source, writes what fits and returns the full length.
template <class To, class Pass>
std::basic_string<To> collect_output(std::size_t source_length, output_limits const & limits, Pass pass) {
    std::size_t needed = 0;
    if (source_length <= limits.stack) {
        To buffer[stack_buffer_size];
        needed = pass(buffer, limits.stack);
        if (needed <= limits.stack) {
            return {buffer, needed};
        }
        // A heap buffer of the source's length would be smaller still, and the exact length is known.
    } else {
        std::basic_string<To> result(std::min(source_length, limits.heap), To());
        needed = pass(result.data(), result.size());
        if (needed <= result.size()) {
            result.resize(needed);
            return result;
        }
    }
    return collect_exactly<To>(needed, pass);
}

} // namespace fl::i18n
