#include "chars/case_run.hpp"
#include "chars/mark_order.hpp"
#include "foundation/ascii.hpp"
#include "foundation/overlap.hpp"
#include "locale/qz_locale_impl.hpp"

#include <algorithm>
#include <boost/throw_exception.hpp>
#include <cstdint>
#include <fl/i18n/ctype.hpp>
#include <limits>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>

namespace fl::i18n {

to_upper_locale::to_upper_locale()
    : to_upper_locale(QzLocale::global()) {}
to_upper_locale::to_upper_locale(QzLocale const & locale)
    : locale_(&locale) {}
QzLocale const & to_upper_locale::locale() const noexcept {
    return *locale_;
}

to_lower_locale::to_lower_locale()
    : to_lower_locale(QzLocale::global()) {}
to_lower_locale::to_lower_locale(QzLocale const & locale)
    : locale_(&locale) {}
QzLocale const & to_lower_locale::locale() const noexcept {
    return *locale_;
}

namespace detail {

namespace {

constexpr std::size_t largest_size = std::numeric_limits<std::int32_t>::max();

[[noreturn]] void refuse_size() {
    boost::throw_exception(CtypeSizeTooLarge());
}

/// Returns the source as a view, empty for a null pointer.
std::u16string_view source_text(char16_t const * src, std::size_t src_len) {
    if (!src || src_len == 0) {
        return {};
    }
    if (src_len > largest_size) {
        refuse_size();
    }
    return {src, src_len};
}

/// Runs an operation of the conversion library, which takes the buffer's capacity, the length of the source
/// and a status, and returns the length of the full result.
template <class Operation>
std::size_t run(char16_t * dst, std::size_t dst_len, std::u16string_view source, Operation operation) {
    if (source.empty()) {
        return 0;
    }
    auto const capacity = static_cast<std::int32_t>(dst ? std::min(dst_len, largest_size) : 0);
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t const length = operation(capacity, static_cast<std::int32_t>(source.size()), &status);
    if (U_FAILURE(status) && status != U_BUFFER_OVERFLOW_ERROR) {
        boost::throw_exception(CtypeTransformFailure(status));
    }
    return static_cast<std::size_t>(length);
}

using case_run::letter_case;

/// Returns the first four letters of the language that begins a locale name, in lower case and the first one
/// highest. No language with rules of its own for letter case has as many.
constexpr std::uint32_t language_of(std::string_view locale_name) {
    std::uint32_t letters = 0;
    unsigned shift = 32;
    for (char const c : locale_name.substr(0, 4)) {
        if (c == '_' || c == '-' || c == '.' || c == '@' || c == '\0') {
            break;
        }
        shift -= 8;
        letters |= static_cast<std::uint32_t>(static_cast<unsigned char>(ascii::to_lower(c))) << shift;
    }
    return letters;
}

case_run::rules rules_of(std::uint32_t language) {
    switch (language) {
    case language_of("tr"):
    case language_of("tur"):
    case language_of("az"):
    case language_of("aze"):
        return case_run::rules::turkic;
    case language_of("lt"):
    case language_of("lit"):
        return case_run::rules::lithuanian;
    case language_of("el"):
    case language_of("ell"):
        return case_run::rules::greek;
    default:
        return case_run::rules::common;
    }
}

/// Returns from where on the conversion library has to see a text of which the units up to `end` are mapped
/// one by one.
///
/// What it looks at behind and before a letter (is the sigma the last letter of its word? has the I a dot
/// above?) is case-ignorable, marks included, up to one unit more. Marks above are not mapped one by one.
std::size_t context_begin(std::u16string_view text, std::size_t end) {
    while (end > 0 && !ascii::is_letter(text[end - 1]) &&
           u_hasBinaryProperty(text[end - 1], UCHAR_CASE_IGNORABLE)) {
        --end;
    }
    return end > 0 ? end - 1 : 0;
}

/// Tells whether a buffer takes each unit of a text at its place and leaves the text as it is. Into others
/// the conversion library maps whole texts, as it copes with overlaps and omits what has no room.
bool is_roomy(char16_t const * dst, std::size_t dst_len, std::u16string_view text) {
    constexpr std::size_t size = sizeof(char16_t);
    return dst && dst_len >= text.size() &&
           !overlap(dst, std::min(dst_len, largest_size) * size, text.data(), text.size() * size);
}

/// Maps a text of which a part is in the buffer already, and returns the length of the full result.
template <letter_case To>
std::size_t map_rest(char16_t * dst, std::size_t dst_len, std::u16string_view text, case_run::progress done,
                     std::uint32_t language) {
    // The language alone: "tr.UTF-8" would be no Turkish to the conversion library.
    char const locale[] = {static_cast<char>(language >> 24), static_cast<char>(language >> 16),
                           static_cast<char>(language >> 8), static_cast<char>(language), '\0'};
    auto const mapping = To == letter_case::upper ? &u_strToUpper : &u_strToLower;
    std::size_t const begin = context_begin(text, done.read);
    std::size_t written = done.written - (done.read - begin);
    if (To == letter_case::upper && begin < done.read && text[begin] == case_run::sharp_s) {
        --written;
    }
    return written +
           run(dst, dst_len - written, text.substr(begin),
               [&](std::int32_t capacity, std::int32_t rest_length, UErrorCode * status) {
                   return mapping(dst + written, capacity, text.data() + begin, rest_length, locale, status);
               });
}

template <letter_case To>
std::size_t map_case(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                     QzLocale const & locale) {
    std::string storage;
    std::uint32_t const language = language_of(lc_name(locale, QzLocale::LcCategory::ctype, storage));
    std::u16string_view const text = source_text(src, src_len);
    case_run::progress done{};
    if (is_roomy(dst, dst_len, text)) {
        done = case_run::map<To>(dst, dst_len, text, rules_of(language));
    }
    if (done.read < text.size()) {
        done.written = map_rest<To>(dst, dst_len, text, done, language);
    } else if (done.read != 0 && done.written < dst_len) {
        dst[done.written] = u'\0'; // as the conversion library ends a result where it can
    }
    if (done.written > largest_size) {
        // The conversion library's own answer to a result that it cannot count.
        boost::throw_exception(CtypeTransformFailure(U_INDEX_OUTOFBOUNDS_ERROR));
    }
    return done.written;
}

auto normalizer_of(normalization_form form) {
    switch (form) {
    case normalization_form::compose:
        return &unorm2_getNFCInstance;
    case normalization_form::decompose:
        return &unorm2_getNFDInstance;
    }
    boost::throw_exception(CtypeInvalidArgument());
}

template <class CaseMode>
std::size_t map_and_normalize(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                              CaseMode const & mode, normalization_form form) {
    ustring const mapped = fl::i18n::transform(source_text(src, src_len), mode);
    return transform(dst, dst_len, mapped.data(), mapped.size(), form);
}

} // namespace

std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                      to_lower_locale const & mode) {
    return map_case<letter_case::lower>(dst, dst_len, src, src_len, mode.locale());
}

std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                      to_upper_locale const & mode) {
    return map_case<letter_case::upper>(dst, dst_len, src, src_len, mode.locale());
}

std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                      normalization_form form) {
    auto const normalizer = normalizer_of(form);
    ustring storage;
    std::u16string_view const text = order_long_mark_runs(source_text(src, src_len), storage);
    return run(dst, dst_len, text, [&](std::int32_t capacity, std::int32_t length, UErrorCode * status) {
        return unorm2_normalize(normalizer(status), text.data(), length, dst, capacity, status);
    });
}

std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                      to_lower_locale const & mode, normalization_form form) {
    return map_and_normalize(dst, dst_len, src, src_len, mode, form);
}

std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src, std::size_t src_len,
                      to_upper_locale const & mode, normalization_form form) {
    return map_and_normalize(dst, dst_len, src, src_len, mode, form);
}

} // namespace detail

} // namespace fl::i18n
