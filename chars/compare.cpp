#include "chars/folded_text.hpp"
#include "chars/mark_order.hpp"

#include <algorithm>
#include <boost/throw_exception.hpp>
#include <fl/i18n/ctype.hpp>
#include <limits>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf16.h>

namespace fl::i18n::detail {

namespace {

using modes = character_handling_mode_context;
using normalizer_getter = icu::Normalizer2 const * (*)(UErrorCode &);

void check(UErrorCode status) {
    if (U_FAILURE(status)) {
        boost::throw_exception(CtypeStrCompFailure());
    }
}

std::u16string_view text_of(char16_t const * text, std::size_t length) {
    if (length > std::numeric_limits<std::int32_t>::max()) {
        boost::throw_exception(CtypeSizeTooLarge());
    }
    // The conversion library refuses null pointers, even with a length of 0.
    return text ? std::u16string_view(text, length) : std::u16string_view(u"");
}

bool is_ascii(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

/// Returns the form in which a mode compares texts; null when it takes them as they are.
normalizer_getter form_of(unsigned mode) {
    if (mode & modes::normalized_compose_mode) {
        bool const decomposed = (mode & modes::normalized_decompose_mode) == modes::normalized_decompose_mode;
        return decomposed ? &icu::Normalizer2::getNFDInstance : &icu::Normalizer2::getNFCInstance;
    }
    return mode & modes::normalization_insensitive_mode ? &icu::Normalizer2::getNFDInstance : nullptr;
}

/// Tells whether the lower case of I has no dot in a locale, as in Turkish.
bool has_dotless_i(QzLocale const & locale) {
    constexpr char16_t dotless_i = 0x131;
    char16_t lower = 0;
    return transform(&lower, 1, u"I", 1, to_lower_locale(locale)) == 1 && lower == dotless_i;
}

std::uint32_t folding_of(modes const & mode) {
    bool const is_turkic = (mode.mode() & modes::locale_mode) && has_dotless_i(mode.locale());
    return is_turkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT;
}

void normalize(icu::UnicodeString & text, normalizer_getter form) {
    UErrorCode status = U_ZERO_ERROR;
    icu::Normalizer2 const * const normalizer = form(status);
    check(status);
    if (!normalizer->isNormalized(text, status)) {
        text = normalizer->normalize(text, status);
    }
    check(text.isBogus() ? U_MEMORY_ALLOCATION_ERROR : status);
}

/// Returns where the dot above a letter is among the marks behind it in a text in NFD; -1 when it has none.
std::int32_t find_dot_above(icu::UnicodeString const & text, std::int32_t behind_letter) {
    constexpr UChar32 dot_above = 0x307;
    for (std::int32_t i = behind_letter; i < text.length(); i = text.moveIndex32(i, 1)) {
        UChar32 const c = text.char32At(i);
        if (c == dot_above) {
            return i;
        }
        std::uint8_t const combining_class = u_getCombiningClass(c);
        if (combining_class == 0 || combining_class == u_getCombiningClass(dot_above)) {
            break;
        }
    }
    return -1;
}

/// Returns a text in NFD with i for each capital I with its dot above, as Turkic languages pair them: folding
/// takes code points one by one and would take the I for the dotless one.
icu::UnicodeString fold_dotted_capital_i(icu::UnicodeString const & text) {
    icu::UnicodeString result;
    std::int32_t copied = 0;
    for (std::int32_t i = text.indexOf(u'I'); i >= 0; i = text.indexOf(u'I', i + 1)) {
        std::int32_t const dot = find_dot_above(text, i + 1);
        if (dot >= 0) {
            result.append(text, copied, i - copied).append(u'i').append(text, i + 1, dot - i - 1);
            copied = dot + 1;
        }
    }
    return result.append(text, copied, text.length() - copied);
}

/// Returns a text in a form, folded before if the mode asks for it.
icu::UnicodeString normalized(std::u16string_view text, normalizer_getter form, modes const & mode) {
    icu::UnicodeString result(false, text.data(), static_cast<std::int32_t>(text.size()));
    if (mode.mode() & modes::case_insensitive_mode) {
        std::uint32_t const folding = folding_of(mode);
        normalize(result, &icu::Normalizer2::getNFDInstance);
        if (folding == U_FOLD_CASE_EXCLUDE_SPECIAL_I) {
            result = fold_dotted_capital_i(result);
        }
        result.foldCase(folding);
    }
    normalize(result, form);
    return result;
}

int compare_without_case(std::u16string_view a, std::u16string_view b, std::uint32_t folding) {
    auto const difference = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    auto same = static_cast<std::size_t>(difference.first - a.begin());
    if (same > 0 && U16_IS_LEAD(a[same - 1])) {
        --same;
    }
    folded_text left(a.substr(same), folding);
    folded_text right(b.substr(same), folding);
    for (;;) {
        int const left_unit = left.next();
        int const right_unit = right.next();
        if (left_unit != right_unit || left_unit < 0) {
            return left_unit - right_unit;
        }
    }
}

} // namespace

int compare(char16_t const * a, std::size_t a_length, char16_t const * b, std::size_t b_length,
            character_handling_mode_context const & mode) {
    std::u16string_view const left = text_of(a, a_length);
    std::u16string_view const right = text_of(b, b_length);
    if (left == right) {
        return 0;
    }
    normalizer_getter const form = form_of(mode.mode());
    // ASCII is the same in every form.
    if (form && !(is_ascii(left) && is_ascii(right))) {
        ustring left_storage;
        ustring right_storage;
        return normalized(order_long_mark_runs(left, left_storage), form, mode)
            .compare(normalized(order_long_mark_runs(right, right_storage), form, mode));
    }
    if (mode.mode() & modes::case_insensitive_mode) {
        return compare_without_case(left, right, folding_of(mode));
    }
    return left.compare(right);
}

int compare(std::u16string_view a, std::u16string_view b, character_handling_mode_context const & mode) {
    return compare(a.data(), a.size(), b.data(), b.size(), mode);
}

} // namespace fl::i18n::detail
