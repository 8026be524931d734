#include "tools/fl_i18n/json.hpp"

#include <array>
#include <cstdio>
#include <fl/i18n/ustring.hpp>

namespace fl::tool {

std::string to_json_string(std::string_view text) {
    std::string result = "\"";
    for (char const c : i18n::ustring_to_utf8(i18n::utf8_to_ustring(std::string(text)))) {
        if (c == '"' || c == '\\') {
            result += '\\';
            result += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            std::array<char, 8> escape{};
            std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(c));
            result += escape.data();
        } else {
            result += c;
        }
    }
    return result + '"';
}

} // namespace fl::tool
