#include "chars/mark_order.hpp"

#include <algorithm>
#include <fl/i18n/ctype.hpp>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf16.h>
#include <vector>

namespace fl::i18n {

namespace {

/// The length in UTF-16 units from which on a run is long. No text of a language comes near.
constexpr std::size_t long_run = 128;

struct mark {
    std::uint8_t combining_class;
    UChar32 code_point;
};

/// Returns the code point that a unit is of, a lone surrogate as itself.
UChar32 code_point_at(std::u16string_view text, std::size_t i) {
    if (U16_IS_TRAIL(text[i]) && i > 0 && U16_IS_LEAD(text[i - 1])) {
        --i;
    }
    bool const is_pair = U16_IS_LEAD(text[i]) && i + 1 < text.size() && U16_IS_TRAIL(text[i + 1]);
    return is_pair ? U16_GET_SUPPLEMENTARY(text[i], text[i + 1]) : text[i];
}

/// Tells whether the code point that a unit is of may change its place in canonical order.
bool is_mark(std::u16string_view text, std::size_t i) {
    return u_getIntPropertyValue(code_point_at(text, i), UCHAR_LEAD_CANONICAL_COMBINING_CLASS) != 0;
}

void append_in_order(ustring & result, std::u16string_view run, icu::Normalizer2 const & nfd) {
    std::vector<mark> marks;
    for (std::size_t i = 0; i < run.size();) {
        UChar32 const c = code_point_at(run, i);
        i += static_cast<std::size_t>(U16_LENGTH(c));
        icu::UnicodeString decomposition;
        if (!nfd.getDecomposition(c, decomposition)) {
            decomposition = c;
        }
        for (std::int32_t k = 0; k < decomposition.length(); k = decomposition.moveIndex32(k, 1)) {
            UChar32 const part = decomposition.char32At(k);
            marks.push_back({u_getCombiningClass(part), part});
        }
    }
    std::stable_sort(marks.begin(), marks.end(),
                     [](mark const & a, mark const & b) { return a.combining_class < b.combining_class; });
    for (mark const & m : marks) {
        char16_t units[2];
        result.append(units, lcctype::make_uchar_from_utf32(static_cast<char32_t>(m.code_point), units));
    }
}

} // namespace

std::u16string_view order_long_mark_runs(std::u16string_view text, ustring & storage) {
    UErrorCode status = U_ZERO_ERROR;
    icu::Normalizer2 const * const nfd = icu::Normalizer2::getNFDInstance(status);
    if (U_FAILURE(status)) {
        return text; // the normalisation that follows fails for the same reason, and tells it
    }
    std::size_t copied = 0;
    // Every long run has a unit at one of these places.
    for (std::size_t probe = long_run - 1; probe < text.size(); probe += long_run) {
        if (!is_mark(text, probe)) {
            continue;
        }
        std::size_t begin = probe;
        while (begin > copied && is_mark(text, begin - 1)) {
            --begin;
        }
        std::size_t end = probe + 1;
        while (end < text.size() && is_mark(text, end)) {
            ++end;
        }
        if (end - begin >= long_run) {
            storage.append(text, copied, begin - copied);
            append_in_order(storage, text.substr(begin, end - begin), *nfd);
            copied = end;
        }
        probe = end - 1;
    }
    return copied == 0 ? text : std::u16string_view(storage.append(text, copied));
}

} // namespace fl::i18n
