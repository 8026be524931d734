#include "catalogs/identifier_syntax.hpp"

#include "foundation/ascii.hpp"

#include <array>

namespace fl::i18n::detail {

namespace {

enum class kind : unsigned char { other, begins_token, continues_token, colon };

constexpr std::array<kind, 256> kinds = [] {
    std::array<kind, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        auto const c = static_cast<char>(i);
        table[i] = ascii::is_letter(c) || c == '_' ? kind::begins_token
                   : ascii::is_digit(c)            ? kind::continues_token
                   : c == ':'                      ? kind::colon
                                                   : kind::other;
    }
    return table;
}();

} // namespace

bool is_identifier(std::string_view text) {
    bool has_colon = false;
    bool in_token = false;
    for (char const c : text) {
        switch (kinds[static_cast<unsigned char>(c)]) {
        case kind::begins_token:
            in_token = true;
            break;
        case kind::continues_token:
            if (!in_token) {
                return false;
            }
            break;
        case kind::colon:
            if (!in_token) {
                return false;
            }
            has_colon = true;
            in_token = false;
            break;
        case kind::other:
            return false;
        }
    }
    return has_colon && in_token;
}

std::optional<message_id_parts> split_message_id(std::string_view text) {
    auto const colon = text.rfind(':');
    if (!is_identifier(text) || text.find(':') == colon) {
        return std::nullopt;
    }
    return message_id_parts{text.substr(0, colon), text.substr(colon + 1)};
}

} // namespace fl::i18n::detail
