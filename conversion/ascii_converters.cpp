#include "foundation/ascii_run.hpp"
#include "foundation/overlap.hpp"

#include <algorithm>
#include <boost/throw_exception.hpp>
#include <fl/i18n/codecvt.hpp>

namespace fl::i18n {

namespace {

bool is_ascii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}
bool is_ascii(char16_t unit) {
    return unit < 0x80;
}

template <class Char>
void require_ascii(Char const * source, std::size_t length) {
    if (ascii_run_length(source, length) != length) {
        boost::throw_exception(CvtInvalidCharacter());
    }
}

/// Tells whether a text is ASCII alone and may be converted in any order.
template <class To, class From>
bool can_copy_run(To const * destination, From const * source, std::size_t length) {
    return ascii_run_length(source, length) == length &&
           !overlap(destination, length * sizeof(To), source, length * sizeof(From));
}

template <class To, class From>
To convert_unit(From unit, bool lenient, To substitute) {
    if (is_ascii(unit)) {
        return static_cast<To>(unit);
    }
    if (!lenient) {
        boost::throw_exception(CvtInvalidCharacter());
    }
    return substitute;
}

} // namespace

codecvt_ascii_to_ustring::codecvt_ascii_to_ustring(bool lenient)
    : lenient_(lenient) {}
codecvt_ascii_to_ustring::~codecvt_ascii_to_ustring() = default;

std::size_t codecvt_ascii_to_ustring::do_get_destination_size(char const * source,
                                                              std::size_t source_length) const {
    if (!lenient_) {
        require_ascii(source, source_length);
    }
    return source_length;
}

std::size_t codecvt_ascii_to_ustring::do_convert(char16_t * destination, std::size_t destination_length,
                                                 char const * source, std::size_t source_length) const {
    if (!destination || !source) {
        return 0;
    }
    auto const length = std::min(destination_length, source_length);
    if (can_copy_run(destination, source, length)) {
        return widen_ascii_run(destination, source, length);
    }
    // From the end towards the start: what a strict failure leaves in the buffer is the tail, and a text may
    // be converted in its own place.
    for (auto i = length; i-- > 0;) {
        destination[i] = convert_unit(source[i], lenient_, u'\xFFFD');
    }
    return length;
}

ustring codecvt_ascii_to_ustring::do_convert(char const * source, std::size_t source_length) {
    ustring result(source_length, u'\0');
    result.resize(do_convert(result.data(), result.size(), source, source_length));
    return result;
}

codecvt_ustring_to_ascii::codecvt_ustring_to_ascii(bool lenient)
    : lenient_(lenient) {}
codecvt_ustring_to_ascii::~codecvt_ustring_to_ascii() = default;

std::size_t codecvt_ustring_to_ascii::do_get_destination_size(char16_t const * source,
                                                              std::size_t source_length) const {
    if (!lenient_) {
        require_ascii(source, source_length);
    }
    return source_length;
}

std::size_t codecvt_ustring_to_ascii::do_convert(char * destination, std::size_t destination_length,
                                                 char16_t const * source, std::size_t source_length) const {
    if (!destination || !source) {
        return 0;
    }
    auto const length = std::min(destination_length, source_length);
    if (can_copy_run(destination, source, length)) {
        return narrow_ascii_run(destination, source, length);
    }
    // The substitute is deliberately no character of ASCII.
    std::transform(source, source + length, destination,
                   [this](char16_t unit) { return convert_unit(unit, lenient_, '\xFF'); });
    return length;
}

std::string codecvt_ustring_to_ascii::do_convert(char16_t const * source, std::size_t source_length) {
    std::string result(source_length, '\0');
    result.resize(do_convert(result.data(), result.size(), source, source_length));
    return result;
}

} // namespace fl::i18n
