#include "catalogs/identifier_syntax.hpp"

#include "foundation/ascii.hpp"

#include <algorithm>

namespace fl::i18n::detail {

namespace {

bool may_begin_token(char c) {
    return ascii::is_letter(c) || c == '_';
}

bool is_token(std::string_view text) {
    return !text.empty() && may_begin_token(text.front()) &&
           std::all_of(text.begin(), text.end(),
                       [](char c) { return may_begin_token(c) || ascii::is_digit(c); });
}

} // namespace

bool is_identifier(std::string_view text) {
    auto colon = text.find(':');
    if (colon == text.npos) {
        return false;
    }
    while (colon != text.npos) {
        if (!is_token(text.substr(0, colon))) {
            return false;
        }
        text.remove_prefix(colon + 1);
        colon = text.find(':');
    }
    return is_token(text);
}

} // namespace fl::i18n::detail
