#include "conversion/encoding_diagnostics.hpp"
#include "conversion/text_conversion.hpp"
#include "locale/encodings.hpp"

#include <boost/throw_exception.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/ustring.hpp>

namespace fl::i18n {

namespace {

/// Converts a text of or to the process encoding, by a converter that is private to the call where it takes
/// one.
template <class Direction>
auto convert_process_text(std::basic_string_view<typename Direction::from> text) {
    kept_encoding const * const encoding = lcmgmt::process_encoding();
    icu_converter converter;
    auto const open = [&] {
        converter = encoding ? encoding->clone() : nullptr;
        if (!converter) {
            converter = lcmgmt::open_encoding(QzLocale::global().getEncoding());
        }
        if (!converter) {
            boost::throw_exception(CvtConversionFailure());
        }
        return converter.get();
    };
    return convert_text<Direction>(encoding, open, text);
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
    return convert_exactly(with, text.data(), text.size());
}

ustring to_ustring(char const * text, converter<char16_t, char> const & with) {
    return text ? convert_exactly(with, text, std::char_traits<char>::length(text)) : ustring();
}

std::string to_string(ustring const & text) {
    if (text.empty()) {
        return {};
    }
    diagnose_to_string(text);
    return convert_process_text<from_unicode_direction>(text);
}

std::string to_string(ustring const & text, converter<char, char16_t> const & with) {
    return convert_exactly(with, text.data(), text.size());
}

} // namespace fl::i18n
