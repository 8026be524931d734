#include "conversion/conversion_record.hpp"
#include "conversion/encoding_diagnostics.hpp"
#include "conversion/text_conversion.hpp"
#include "locale/encodings.hpp"

#include <boost/throw_exception.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/ustring.hpp>
#include <typeinfo>

namespace fl::i18n {

namespace {

/// Converts a text of or to the process encoding, by a converter that is private to the call where it takes
/// one.
template <class Direction>
auto convert_process_text(std::basic_string_view<typename Direction::from> text) {
    kept_encoding const * const encoding = lcmgmt::process_encoding();
    auto const open = [encoding](icu_converter & own) {
        own = encoding ? encoding->clone() : nullptr;
        if (!own) {
            own = lcmgmt::open_encoding(QzLocale::global().getEncoding());
        }
        if (!own) {
            boost::throw_exception(CvtConversionFailure());
        }
        return own.get();
    };
    return convert_text<Direction>(encoding, open, text);
}

/// Converts a text by a converter of the caller's.
///
/// What the tables of a named encoding convert they convert in one pass, as nobody can tell; a derived class
/// could.
template <class Direction, class Named>
auto convert_text_with(converter<typename Direction::to, typename Direction::from> const & with,
                       std::basic_string_view<typename Direction::from> text) {
    auto const * const encoding =
        typeid(with) == typeid(Named)
            ? detail::encoding_access::of(static_cast<Named const &>(with)).shared.get()
            : nullptr;
    if (encoding) {
        table_buffer<Direction> buffer;
        auto const progress = Direction::by_tables(*encoding, buffer.data(), text.substr(0, table_piece));
        if (progress.consumed == text.size()) {
            return std::basic_string<typename Direction::to>(buffer.data(), progress.produced);
        }
    }
    return convert_exactly(with, text.data(), text.size());
}

} // namespace

ustring to_ustring(std::string const & text) {
    if (text.empty()) {
        return {};
    }
    diagnose_narrow("to_ustring called with non-ASCII string input: ", text.c_str());
    return convert_process_text<to_unicode_direction>(text);
}

ustring to_ustring(char const * text) {
    if (!text || !*text) {
        return {};
    }
    diagnose_narrow("to_ustring called with non-ASCII char * input: ", text);
    return convert_process_text<to_unicode_direction>(text);
}

ustring to_ustring(std::string const & text, converter<char16_t, char> const & with) {
    return convert_text_with<to_unicode_direction, codecvt_string_to_ustring>(with, text);
}

ustring to_ustring(char const * text, converter<char16_t, char> const & with) {
    return text ? convert_text_with<to_unicode_direction, codecvt_string_to_ustring>(with, text) : ustring();
}

std::string to_string(ustring const & text) {
    if (text.empty()) {
        return {};
    }
    diagnose_to_string(text);
    return convert_process_text<from_unicode_direction>(text);
}

std::string to_string(ustring const & text, converter<char, char16_t> const & with) {
    return convert_text_with<from_unicode_direction, codecvt_ustring_to_string>(with, text);
}

} // namespace fl::i18n
