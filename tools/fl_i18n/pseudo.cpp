#include "tools/fl_i18n/pseudo.hpp"

#include "tools/fl_i18n/catalog/pattern_text.hpp"
#include "tools/fl_i18n/code_points.hpp"

#include <array>
#include <map>
#include <string_view>
#include <unicode/uchar.h>

namespace fl::tool {

namespace {

using i18n::ustring;

constexpr std::u16string_view lower_accented = u"åƀçðéƒĝĥîĵķļɱñöþǫŕšţûṽŵẋýž";
constexpr std::u16string_view upper_accented = u"ÅƁÇÐÉƑĜĤÎĴĶĻṀÑÖÞǪŔŠŢÛṼŴẊÝŽ";
constexpr char16_t right_to_left_mark = u'\u200F';
constexpr char16_t right_to_left_override = u'\u202E';
constexpr char16_t end_of_override = u'\u202C';

char16_t accented(char16_t unit) {
    if (unit >= u'a' && unit <= u'z') {
        return lower_accented[static_cast<std::size_t>(unit - u'a')];
    }
    if (unit >= u'A' && unit <= u'Z') {
        return upper_accented[static_cast<std::size_t>(unit - u'A')];
    }
    return unit;
}

bool belongs_to_word(UChar32 c) {
    return u_isalnum(c) || (U_GET_GC_MASK(c) & U_GC_M_MASK) != 0;
}

/// Writes each word from right to left, whatever its script. The marks keep its neighbours, holes with text
/// in any script among them, in an order from right to left.
ustring mirrored(std::u16string_view text) {
    ustring result;
    bool in_word = false;
    auto const turn = [&](bool into_word) {
        if (into_word != in_word) {
            in_word = into_word;
            result += in_word ? ustring{right_to_left_mark, right_to_left_override}
                              : ustring{end_of_override, right_to_left_mark};
        }
    };
    for (std::size_t i = 0; i < text.size();) {
        char32_t const c = code_point_at(text, i);
        turn(belongs_to_word(static_cast<UChar32>(c)));
        result += text.substr(i, unit_count(c));
        i += unit_count(c);
    }
    turn(false);
    return result;
}

ustring changed(std::u16string_view text, pseudo_style const & style) {
    if (style.right_to_left) {
        return mirrored(text);
    }
    ustring result;
    for (char16_t const unit : text) {
        result += accented(unit);
    }
    return result;
}

/// Returns what makes a text of this many characters longer: a blank and whole words.
ustring padding(std::size_t length, pseudo_style const & style) {
    constexpr std::array<std::u16string_view, 10> words = {u" one", u" two",   u" three", u" four", u" five",
                                                           u" six", u" seven", u" eight", u" nine", u" ten"};
    std::size_t const times = length <= 10 ? 3 : length <= 20 ? 2 : 1;
    std::size_t const wanted = (length * style.expansion * times + 99) / 100;
    ustring result;
    for (std::size_t i = 0; result.size() < wanted; ++i) {
        result += words[i % words.size()];
    }
    return changed(result, style);
}

} // namespace

std::optional<ustring> pseudo_text(ustring const & message, pseudo_style const & style) {
    auto const pieces = split_pattern(message);
    if (!pieces || message.empty()) {
        return pieces ? std::optional(message) : std::nullopt;
    }
    ustring result = u"[";
    // The number of characters of literal text in each message.
    std::map<std::size_t, std::size_t> lengths;
    for (pattern_piece const & piece : *pieces) {
        std::u16string_view const text =
            std::u16string_view(message).substr(piece.begin, piece.end - piece.begin);
        switch (piece.what) {
        case pattern_piece::kind::text:
            lengths[piece.message] += text.size();
            result += changed(text, style);
            break;
        case pattern_piece::kind::syntax:
            result += text;
            break;
        case pattern_piece::kind::end:
            result += padding(lengths[piece.message], style);
            break;
        }
    }
    return result + u"]";
}

std::size_t make_pseudo(catalog & contents, pseudo_style const & style) {
    std::size_t refused = 0;
    for (catalog_entry & entry : contents.entries) {
        if (!is_translatable(entry)) {
            continue;
        }
        if (auto text = pseudo_text(entry.text.units, style)) {
            entry.text.units = std::move(*text);
        } else {
            ++refused;
        }
    }
    std::string const locale = style.right_to_left ? "ar_XB" : "en_XA";
    for (xml::attribute & attribute : contents.attributes) {
        if (attribute.name == "locale") {
            attribute.value = locale;
            return refused;
        }
    }
    contents.attributes.push_back({"locale", locale, 0, 0});
    return refused;
}

} // namespace fl::tool
