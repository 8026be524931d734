#include "conversion/unit_copy.hpp"

#include <algorithm>
#include <fl/filesystem/file.hpp>
#include <fl/i18n/locale.hpp>

namespace fl::filesystem {

namespace {

using i18n::copy_text;
using i18n::copy_units;
using i18n::ustring;

std::string system_encoding() {
    return i18n::QzLocale::system().getEncoding();
}

} // namespace

codecvt_filesystem_to_ustring::codecvt_filesystem_to_ustring(bool) {}

std::size_t codecvt_filesystem_to_ustring::do_get_destination_size(wchar_t const *,
                                                                   std::size_t source_length) const {
    return source_length;
}

std::size_t codecvt_filesystem_to_ustring::do_convert(char16_t * destination, std::size_t destination_length,
                                                      wchar_t const * source,
                                                      std::size_t source_length) const {
    return copy_units(destination, destination_length, source, source_length);
}

ustring codecvt_filesystem_to_ustring::do_convert(wchar_t const * source, std::size_t source_length) {
    return copy_text<char16_t>(source, source_length);
}

codecvt_ustring_to_filesystem::codecvt_ustring_to_filesystem(bool) {}

std::size_t codecvt_ustring_to_filesystem::do_get_destination_size(char16_t const *,
                                                                   std::size_t source_length) const {
    return source_length;
}

std::size_t codecvt_ustring_to_filesystem::do_convert(wchar_t * destination, std::size_t destination_length,
                                                      char16_t const * source,
                                                      std::size_t source_length) const {
    return copy_units(destination, destination_length, source, source_length);
}

std::wstring codecvt_ustring_to_filesystem::do_convert(char16_t const * source, std::size_t source_length) {
    return copy_text<wchar_t>(source, source_length);
}

codecvt_narrow_string_to_ustring::codecvt_narrow_string_to_ustring(bool lenient)
    : converter_(system_encoding(), lenient) {}

std::size_t codecvt_narrow_string_to_ustring::do_get_destination_size(char const * source,
                                                                      std::size_t source_length) const {
    return converter_.get_destination_size(source, source_length);
}

std::size_t codecvt_narrow_string_to_ustring::do_convert(char16_t * destination,
                                                         std::size_t destination_length, char const * source,
                                                         std::size_t source_length) const {
    return std::min(destination_length,
                    converter_.convert(destination, destination_length, source, source_length));
}

ustring codecvt_narrow_string_to_ustring::do_convert(char const * source, std::size_t source_length) {
    return converter_.convert(source, source_length);
}

codecvt_ustring_to_narrow_string::codecvt_ustring_to_narrow_string(bool lenient)
    : converter_(system_encoding(), lenient) {}

std::size_t codecvt_ustring_to_narrow_string::do_get_destination_size(char16_t const * source,
                                                                      std::size_t source_length) const {
    return converter_.get_destination_size(source, source_length);
}

std::size_t codecvt_ustring_to_narrow_string::do_convert(char * destination, std::size_t destination_length,
                                                         char16_t const * source,
                                                         std::size_t source_length) const {
    return std::min(destination_length,
                    converter_.convert(destination, destination_length, source, source_length));
}

std::string codecvt_ustring_to_narrow_string::do_convert(char16_t const * source, std::size_t source_length) {
    return converter_.convert(source, source_length);
}

} // namespace fl::filesystem
