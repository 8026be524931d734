#include "tools/fl_i18n/lint/pattern_syntax.hpp"

#include "foundation/ascii.hpp"

#include <boost/numeric/conversion/cast.hpp>
#include <charconv>
#include <fl/i18n/ustring.hpp>
#include <new>
#include <string>
#include <unicode/msgfmt.h>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace fl::tool::lint {

namespace {

/// Tells whether a text, of the characters above, is a number as C writes it; the parser takes 127 of them.
bool is_double(std::u16string_view text) {
    std::string const number = i18n::ustring_to_utf8(i18n::ustring(text));
    char const * const end = number.data() + number.size();
    // The conversion takes no plus sign.
    char const * const begin = number.data() + (number.starts_with('+') && !number.starts_with("+-") ? 1 : 0);
    double ignored = 0;
    return begin != end && number.size() < 128 && std::from_chars(begin, end, ignored).ptr == end;
}

} // namespace

bool is_space(char16_t unit) {
    return u_hasBinaryProperty(unit, UCHAR_PATTERN_WHITE_SPACE);
}

bool ends_name(char16_t unit) {
    return is_space(unit) || u_hasBinaryProperty(unit, UCHAR_PATTERN_SYNTAX);
}

bool may_be_in_number(char16_t unit) {
    return ascii::is_digit(unit) ||
           std::u16string_view(u"+-.eE\u221E").find(unit) != std::u16string_view::npos;
}

bool is_number(std::u16string_view text, bool infinity_allowed) {
    bool const has_sign = text.starts_with(u'+') || text.starts_with(u'-');
    return is_double(text) || (infinity_allowed && text.substr(has_sign ? 1 : 0) == u"\u221E");
}

bool has_letter(std::u16string_view text) {
    icu::UnicodeString const view(false, text.data(), boost::numeric_cast<std::int32_t>(text.size()));
    for (std::int32_t i = 0; i < view.length(); i = view.moveIndex32(i, 1)) {
        if (u_isalpha(view.char32At(i))) {
            return true;
        }
    }
    return false;
}

bool begins_with_letter(std::u16string_view name) {
    return has_letter(name.substr(0, !name.empty() && U16_IS_LEAD(name.front()) ? U16_MAX_LENGTH : 1));
}

placed_text quote_apostrophes(placed_text const & text) {
    UErrorCode status = U_ZERO_ERROR;
    auto const length = boost::numeric_cast<std::int32_t>(text.units.size());
    auto const quoted =
        icu::MessageFormat::autoQuoteApostrophe(icu::UnicodeString(false, text.units.data(), length), status);
    if (U_FAILURE(status) || quoted.isBogus()) {
        throw std::bad_alloc();
    }
    placed_text result;
    result.units.assign(quoted.getBuffer(), static_cast<std::size_t>(quoted.length()));
    std::size_t from = 0;
    for (char16_t const unit : result.units) {
        result.places.push_back(text.places[from]);
        if (from < text.units.size() && text.units[from] == unit) {
            ++from;
        }
    }
    result.places.push_back(text.places.back());
    return result;
}

} // namespace fl::tool::lint
