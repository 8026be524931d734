#include "tools/fl_i18n/console.hpp"

#include <algorithm>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ustring.hpp>
#include <unistd.h>

namespace fl::tool {

std::vector<std::string> program_arguments(int argc, char const * const * argv) {
    return {argv + 1, argv + argc};
}

bool write(std::FILE * stream, i18n::ustring const & text) {
    std::string const bytes = is_terminal(stream)
                                  ? i18n::to_string(text, *i18n::create_codecvt_ustring_to_terminal_output())
                                  : i18n::ustring_to_utf8(text);
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
