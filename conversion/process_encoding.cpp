#include "conversion/driver.hpp"
#include "conversion/encoding_diagnostics.hpp"
#include "locale/encodings.hpp"

#include <boost/throw_exception.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/ustring.hpp>

namespace fl::i18n {

namespace {

icu_converter open_process_converter() {
    if (auto clone = lcmgmt::clone_process_converter()) {
        return clone;
    }
    if (auto opened = lcmgmt::open_encoding(QzLocale::global().getEncoding())) {
        return opened;
    }
    boost::throw_exception(CvtConversionFailure());
}

ustring convert_to_ustring(char const * text, std::size_t length) {
    auto const process_converter = open_process_converter();
    return run_driver<to_unicode_direction>(process_converter.get(), text, length);
}

} // namespace

ustring to_ustring(std::string const & text) {
    if (text.empty()) {
        return {};
    }
    diagnose_narrow("to_ustring called with non-ASCII string input: ", text.c_str());
    return convert_to_ustring(text.data(), text.size());
}

ustring to_ustring(char const * text) {
    if (!text || !*text) {
        return {};
    }
    diagnose_narrow("to_ustring called with non-ASCII char * input: ", text);
    return convert_to_ustring(text, std::char_traits<char>::length(text));
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
    auto const process_converter = open_process_converter();
    return run_driver<from_unicode_direction>(process_converter.get(), text.data(), text.size());
}

std::string to_string(ustring const & text, converter<char, char16_t> const & with) {
    return convert_exactly(with, text.data(), text.size());
}

} // namespace fl::i18n
