#include "conversion/unit_copy.hpp"

#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ustring.hpp>
#include <string>

namespace fl::i18n {

ustring to_ustring(std::wstring const & text) {
    return copy_text<char16_t>(text.data(), text.size());
}

ustring to_ustring(wchar_t const * text) {
    return text ? copy_text<char16_t>(text, std::char_traits<wchar_t>::length(text)) : ustring();
}

std::wstring to_wstring(ustring const & text) {
    return copy_text<wchar_t>(text.data(), text.size());
}

codecvt_wstring_to_ustring::codecvt_wstring_to_ustring() = default;
codecvt_wstring_to_ustring::~codecvt_wstring_to_ustring() = default;

std::size_t codecvt_wstring_to_ustring::do_get_destination_size(wchar_t const *,
                                                                std::size_t source_length) const {
    return source_length;
}

std::size_t codecvt_wstring_to_ustring::do_convert(char16_t * destination, std::size_t destination_length,
                                                   wchar_t const * source, std::size_t source_length) const {
    copy_units(destination, destination_length, source, source_length);
    return source_length;
}

ustring codecvt_wstring_to_ustring::do_convert(wchar_t const * source, std::size_t source_length) {
    return copy_text<char16_t>(source, source_length);
}

codecvt_ustring_to_wstring::codecvt_ustring_to_wstring() = default;
codecvt_ustring_to_wstring::~codecvt_ustring_to_wstring() = default;

std::size_t codecvt_ustring_to_wstring::do_get_destination_size(char16_t const *,
                                                                std::size_t source_length) const {
    return source_length;
}

std::size_t codecvt_ustring_to_wstring::do_convert(wchar_t * destination, std::size_t destination_length,
                                                   char16_t const * source, std::size_t source_length) const {
    copy_units(destination, destination_length, source, source_length);
    return source_length;
}

std::wstring codecvt_ustring_to_wstring::do_convert(char16_t const * source, std::size_t source_length) {
    return copy_text<wchar_t>(source, source_length);
}

} // namespace fl::i18n
