#include "conversion/utf8.hpp"

#include "conversion/direct.hpp"
#include "conversion/output_buffer.hpp"

#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ustring.hpp>
#include <unicode/ustring.h>

namespace fl::i18n {

namespace {

constexpr UChar32 replacement = 0xFFFD;

void transform_to_utf8(char * destination, std::int32_t capacity, std::int32_t * needed,
                       char16_t const * source, std::int32_t length, UErrorCode * status) {
    u_strToUTF8WithSub(destination, capacity, needed, source, length, replacement, nullptr, status);
}

void transform_from_utf8(char16_t * destination, std::int32_t capacity, std::int32_t * needed,
                         char const * source, std::int32_t length, UErrorCode * status) {
    u_strFromUTF8WithSub(destination, capacity, needed, source, length, replacement, nullptr, status);
}

} // namespace

std::string utf16_to_utf8(std::u16string_view text, std::size_t converter_threshold) {
    if (text.empty()) {
        return {};
    }
    if (text.size() >= converter_threshold) {
        return codecvt_ustring_to_string(call_back_default, "UTF-8", {}).convert(text.data(), text.size());
    }
    return collect_output<char>(text.size(), {}, [&](char * destination, std::size_t capacity) {
        return run_direct(transform_to_utf8, destination, capacity, text.data(), text.size(),
                          converter_threshold);
    });
}

ustring utf8_to_utf16(std::string_view text, std::size_t converter_threshold) {
    if (text.empty()) {
        return {};
    }
    if (text.size() >= converter_threshold) {
        return codecvt_string_to_ustring(call_back_default, "UTF-8").convert(text.data(), text.size());
    }
    return collect_output<char16_t>(text.size(), {}, [&](char16_t * destination, std::size_t capacity) {
        return run_direct(transform_from_utf8, destination, capacity, text.data(), text.size(),
                          converter_threshold);
    });
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
