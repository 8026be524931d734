#include "conversion/utf8.hpp"

#include "conversion/output_buffer.hpp"
#include "foundation/utf8_decode.hpp"
#include "foundation/utf8_encode.hpp"

#include <algorithm>
#include <boost/throw_exception.hpp>
#include <cstdint>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ustring.hpp>

namespace fl::i18n {

namespace {

/// The most source units that are converted at once.
constexpr std::size_t piece_length = 1024;

bool continues_character(std::string_view text, std::size_t at) {
    return (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

bool continues_character(std::u16string_view text, std::size_t at) {
    return (text[at] & 0xFC00) == 0xDC00;
}

/// Takes a piece off the front of a text; no character is in two pieces.
template <class Text>
Text take_piece(Text & text, std::size_t most_continuing) {
    std::size_t length = std::min(text.size(), piece_length);
    if (length < text.size()) {
        // Further back than a character is long there is none to be cut.
        std::size_t back = 0;
        while (back < most_continuing && continues_character(text, length - back)) {
            ++back;
        }
        length -= continues_character(text, length - back) ? 0 : back;
    }
    Text const piece = text.substr(0, length);
    text.remove_prefix(length);
    return piece;
}

void require_countable(std::size_t length) {
    if (length > INT32_MAX) {
        boost::throw_exception(CvtSizeTooLarge());
    }
}

[[gnu::noinline]] std::string long_utf16_to_utf8(std::u16string_view text, std::size_t converter_threshold) {
    if (text.size() >= converter_threshold) {
        return codecvt_ustring_to_string(call_back_default, "UTF-8", {}).convert(text.data(), text.size());
    }
    char buffer[3 * piece_length];
    std::string result;
    while (!text.empty()) {
        auto const piece = take_piece(text, 1);
        append_piece(result, buffer, encode_utf8(buffer, piece), piece.size(), text.size());
        require_countable(result.size());
    }
    return result;
}

[[gnu::noinline]] ustring long_utf8_to_utf16(std::string_view text, std::size_t converter_threshold) {
    if (text.size() >= converter_threshold) {
        return codecvt_string_to_ustring(call_back_default, "UTF-8").convert(text.data(), text.size());
    }
    char16_t buffer[piece_length];
    ustring result;
    while (!text.empty()) {
        auto const piece = take_piece(text, 3);
        append_piece(result, buffer, decode_utf8(buffer, piece), piece.size(), text.size());
    }
    return result;
}

} // namespace

std::string utf16_to_utf8(std::u16string_view text, std::size_t converter_threshold) {
    if (text.size() >= std::min(piece_length + 1, converter_threshold)) {
        return long_utf16_to_utf8(text, converter_threshold);
    }
    char buffer[3 * piece_length];
    return {buffer, encode_utf8(buffer, text)};
}

ustring utf8_to_utf16(std::string_view text, std::size_t converter_threshold) {
    if (text.size() >= std::min(piece_length + 1, converter_threshold)) {
        return long_utf8_to_utf16(text, converter_threshold);
    }
    char16_t buffer[piece_length];
    return {buffer, decode_utf8(buffer, text)};
}

std::string ustring_to_utf8(ustring const & text) {
    return utf16_to_utf8(text);
}

std::string ustring_to_utf8(std::u16string_view text) {
    return utf16_to_utf8(text);
}

std::string ustring_to_utf8(char16_t const * text) {
    return text ? utf16_to_utf8(text) : std::string();
}

std::string ustring_to_utf8(char16_t const * text, std::size_t length) {
    return text ? utf16_to_utf8({text, length}) : std::string();
}

ustring utf8_to_ustring(std::string const & text) {
    return utf8_to_utf16(text);
}

ustring utf8_to_ustring(char const * text) {
    return text ? utf8_to_utf16(text) : ustring();
}

} // namespace fl::i18n
