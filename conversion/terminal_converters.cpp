#include "locale/encodings.hpp"

#include <fl/i18n/codecvt.hpp>

namespace fl::i18n {

// What the global locale answers for the terminal's encodings is the choice of the system or the environment,
// or else the locale's own encoding, for which the converters take an empty name, too.

std::unique_ptr<converter<char16_t, char> const> create_codecvt_terminal_to_ustring() {
    return std::make_unique<codecvt_string_to_ustring>(lcmgmt::terminal_output_encoding(), true);
}

std::unique_ptr<converter<char16_t, char> const> create_codecvt_terminal_input_to_ustring() {
    return std::make_unique<codecvt_string_to_ustring>(lcmgmt::terminal_input_encoding(), true);
}

std::unique_ptr<converter<char, char16_t> const> create_codecvt_ustring_to_terminal() {
    return std::make_unique<codecvt_ustring_to_string>(lcmgmt::terminal_output_encoding(), true);
}

std::unique_ptr<converter<char, char16_t> const> create_codecvt_ustring_to_terminal_output() {
    return std::make_unique<codecvt_ustring_to_string>(lcmgmt::terminal_output_encoding(), true);
}

} // namespace fl::i18n
