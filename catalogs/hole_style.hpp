#pragma once

#include "foundation/ascii.hpp"

#include <cstddef>
#include <fl/i18n/limits.hpp>
#include <string_view>

namespace fl::i18n {

/// Tells whether a number that begins a text, as skeletons have it, has few digits and a small exponent.
inline bool is_moderate_number(std::u16string_view text) {
    std::size_t exponent = 0;
    bool in_exponent = false;
    std::size_t length = 0;
    for (; length < text.size(); ++length) {
        char16_t const unit = text[length];
        if (unit == u'e' || unit == u'E') {
            in_exponent = true;
        } else if (ascii::is_digit(unit)) {
            exponent = in_exponent ? 10 * exponent + static_cast<std::size_t>(unit - u'0') : 0;
        } else if (unit != u'.' && unit != u'+' && unit != u'-') {
            break;
        }
        if (exponent > limits::greatest_magnitude || length == limits::greatest_magnitude) {
            return false;
        }
    }
    return true;
}

/// Tells whether the style of a hole is one that ICU makes a format of, or refuses, at once.
inline bool is_moderate_style(std::u16string_view style) {
    using namespace std::string_view_literals;
    if (style.size() > limits::longest_style) {
        return false;
    }
    if (style.find(u"::") == style.npos) {
        return true;
    }
    for (std::u16string_view const stem : {u"scale/"sv, u"precision-increment/"sv}) {
        for (auto at = style.find(stem); at != style.npos; at = style.find(stem, at + 1)) {
            if (!is_moderate_number(style.substr(at + stem.size()))) {
                return false;
            }
        }
    }
    return true;
}

} // namespace fl::i18n
