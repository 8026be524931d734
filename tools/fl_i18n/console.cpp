#include "tools/fl_i18n/console.hpp"

#include "tools/fl_i18n/command.hpp"

#include <fl/i18n/ustring.hpp>

namespace fl::tool {

void print(std::string_view text) {
    if (!write(stdout, i18n::utf8_to_ustring(std::string(text)))) {
        throw command_failure(exit_input_output, "the output cannot be written");
    }
}

} // namespace fl::tool
