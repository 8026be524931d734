#include "conversion/encoding_diagnostics.hpp"

#include <algorithm>
#include <cstdlib>
#include <fl/i18n/ustring.hpp>
#include <iostream>
#include <string>

namespace fl::i18n {

namespace {

bool const enabled = std::getenv("QZ_CHAR_ENCODING_DIAG") != nullptr;

/// Writes the line in one piece, so that those of several threads do not mix.
void write_line(std::string line) {
    line += '\n';
    std::cout << line << std::flush;
}

} // namespace

void diagnose_narrow(char const * message, char const * text) {
    if (!enabled) {
        return;
    }
    std::string const shown = text;
    if (std::any_of(shown.begin(), shown.end(), [](char c) { return static_cast<unsigned char>(c) > 127; })) {
        write_line(message + shown);
    }
}

void diagnose_to_string(ustring const & text) {
    if (!enabled) {
        return;
    }
    // What follows an embedded NUL is not looked at, though it is shown.
    auto const scan_end = std::find(text.begin(), text.end(), u'\0');
    if (std::any_of(text.begin(), scan_end, [](char16_t unit) { return unit > 127; })) {
        write_line("to_string called with non-ASCII input: " + ustring_to_utf8(text));
    }
}

} // namespace fl::i18n
