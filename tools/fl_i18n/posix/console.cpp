#include "tools/fl_i18n/console.hpp"

#include <algorithm>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/ustring.hpp>
#include <unistd.h>
#include <variant>

namespace fl::tool {

namespace {

/// Returns a text in the terminal's encoding, or in UTF-8 where the settings name one that is not known.
std::string to_terminal(i18n::ustring const & text) {
    auto const encoding = i18n::QzLocale::global().getOptData(i18n::LcOptDataType::termoutputencoding);
    try {
        // The substitutes of the encodings themselves are control characters.
        i18n::codecvt_ustring_to_string converter(i18n::call_back_substitute, std::get<std::string>(encoding),
                                                  "?");
        return i18n::to_string(text, converter);
    } catch (i18n::CvtExceptionBase const &) {
        return i18n::ustring_to_utf8(text);
    }
}

} // namespace

std::vector<std::string> program_arguments(int argc, char const * const * argv) {
    return {argv + 1, argv + argc};
}

bool write(std::FILE * stream, i18n::ustring const & text) {
    std::string const bytes = is_terminal(stream) ? to_terminal(text) : i18n::ustring_to_utf8(text);
    return std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() && std::fflush(stream) == 0;
}

bool is_terminal(std::FILE * stream) {
    return isatty(fileno(stream));
}

void set_binary(std::FILE *) {}

i18n::ustring display_path(i18n::ustring path) {
    std::replace(path.begin(), path.end(), u'\\', u'/');
    return path;
}

} // namespace fl::tool
