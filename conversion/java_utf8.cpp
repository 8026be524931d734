#include "conversion/direct.hpp"
#include "conversion/output_buffer.hpp"

#include <fl/i18n/codecvt.hpp>
#include <unicode/ustring.h>

namespace fl::i18n {

namespace {

std::size_t to_java_utf8(char * destination, std::size_t capacity, char16_t const * source,
                         std::size_t length) {
    constexpr std::size_t source_limit = 0x3fffffff;
    return run_direct(u_strToJavaModifiedUTF8, destination, capacity, source, length, source_limit);
}

} // namespace

codecvt_ustring_to_java_nonstandard_utf8::codecvt_ustring_to_java_nonstandard_utf8() = default;
codecvt_ustring_to_java_nonstandard_utf8::~codecvt_ustring_to_java_nonstandard_utf8() = default;

std::size_t
codecvt_ustring_to_java_nonstandard_utf8::do_get_destination_size(char16_t const * source,
                                                                  std::size_t source_length) const {
    return to_java_utf8(nullptr, 0, source, source_length);
}

std::size_t codecvt_ustring_to_java_nonstandard_utf8::do_convert(char * destination,
                                                                 std::size_t destination_length,
                                                                 char16_t const * source,
                                                                 std::size_t source_length) const {
    // Counted first: with more room than the result needs the conversion library would add a terminator.
    std::size_t const needed = to_java_utf8(nullptr, 0, source, source_length);
    to_java_utf8(destination, std::min(needed, destination_length), source, source_length);
    return needed;
}

std::string codecvt_ustring_to_java_nonstandard_utf8::do_convert(char16_t const * source,
                                                                 std::size_t source_length) {
    return collect_output<char>(source_length, {}, [&](char * destination, std::size_t capacity) {
        return to_java_utf8(destination, capacity, source, source_length);
    });
}

} // namespace fl::i18n
