// Case mapping of whole strings, against the conversion library called as its users call it.

#include "bench/answers.hpp"
#include "bench/case_texts.hpp"

#include <deque>
#include <fl/i18n/ctype.hpp>
#include <memory>
#include <unicode/ustring.h>

namespace fl::bench {
namespace {

using i18n::QzLocale;
using i18n::ustring;

struct mapping_case {
    char const * name;
    char const * locale;
    ustring text;
};

using icu_mapping = decltype(&u_strToUpper);

/// Maps into a buffer on the stack; what may not fit there, into a string of the length that a first call
/// counts.
ustring map_with_icu(icu_mapping mapping, ustring const & text, char const * locale) {
    constexpr int32_t stack_room = 256;
    auto const length = static_cast<int32_t>(text.size());
    UErrorCode status = U_ZERO_ERROR;
    if (length <= stack_room) {
        char16_t buffer[stack_room];
        int32_t const mapped = mapping(buffer, stack_room, text.data(), length, locale, &status);
        if (mapped <= stack_room) {
            return {buffer, static_cast<std::size_t>(mapped)};
        }
    }
    int32_t const room = mapping(nullptr, 0, text.data(), length, locale, &status);
    ustring result(static_cast<std::size_t>(room), u'\0');
    status = U_ZERO_ERROR;
    mapping(result.data(), room, text.data(), length, locale, &status);
    return result;
}

/// Maps into a string that is as long as the text, and counts only when that was too short.
ustring guess_with_icu(icu_mapping mapping, ustring const & text, char const * locale) {
    auto const length = static_cast<int32_t>(text.size());
    UErrorCode status = U_ZERO_ERROR;
    ustring result(text.size(), u'\0');
    int32_t const mapped = mapping(result.data(), length, text.data(), length, locale, &status);
    result.resize(static_cast<std::size_t>(mapped));
    if (mapped > length) {
        status = U_ZERO_ERROR;
        mapping(result.data(), mapped, text.data(), length, locale, &status);
    }
    return result;
}

template <class Mode>
void add(std::string const & subject, icu_mapping mapping, mapping_case const & row) {
    // Of all cases; an answer stays where it is.
    static std::deque<ustring> answers;
    ustring const & answer = answers.emplace_back(map_with_icu(mapping, row.text, row.locale));
    std::string const name = subject + '/' + row.name + '/';
    std::shared_ptr<QzLocale const> const locale = QzLocale::createLocale(row.locale);
    add_answer(name + "ours", answer, [=, &row] { return i18n::transform(row.text, Mode(*locale)); });
    add_answer(name + "ICU", answer, [=, &row] { return map_with_icu(mapping, row.text, row.locale); });
    if (row.text.size() > 256) {
        add_answer(name + "ICU, one pass", answer,
                   [=, &row] { return guess_with_icu(mapping, row.text, row.locale); });
    }
}

bool const registered = [] {
    std::u16string_view const german = u"Stra\u00DFenbahn f\u00E4hrt \u00FCber die Gro\u00DFe Br\u00FCcke. ";
    std::u16string_view const russian =
        u"\u0421\u044A\u0435\u0448\u044C \u0435\u0449\u0451 \u044D\u0442\u0438\u0445. ";
    std::u16string_view const greek =
        u"\u0397 \u03B3\u03C1\u03AE\u03B3\u03BF\u03C1\u03B7 \u03BA\u03B1\u03C6\u03AD. ";
    std::u16string_view const japanese =
        u"\u65E5\u672C\u8A9E\u306E\u6587\u5B57\u5217\u3092\u5909\u63DB\u3059\u308B\u3002";
    std::u16string_view const mixed = u"Open \u65E5\u672C: 12 Files, \u00E9t\u00E9 \U0001F600 ";
    static mapping_case const rows[] = {
        {"5 ASCII", "en_US", u"Files"},
        {"20 ASCII", "en_US", repeated(english, 20)},
        {"20 ASCII in Turkish", "tr_TR", repeated(english, 20)},
        {"20 ASCII in Lithuanian", "lt_LT", repeated(english, 20)},
        {"20 ASCII in Greek", "el_GR", repeated(english, 20)},
        {"200 ASCII", "en_US", repeated(english, 200)},
        {"1 MB ASCII", "en_US", repeated(english, long_text)},
        {"20 German", "de_DE", repeated(german, 20)},
        {"20 Russian", "ru_RU", repeated(russian, 20)},
        {"20 Greek", "el_GR", repeated(greek, 20)},
        {"20 Japanese", "ja_JP", repeated(japanese, 20)},
        {"20 mixed", "en_US", repeated(mixed, 20)},
        {"5 Japanese", "ja_JP", repeated(japanese, 5)},
        {"1 MB German", "de_DE", repeated(german, long_text)},
        {"1 MB Russian", "ru_RU", repeated(russian, long_text)},
        {"1 MB Greek", "el_GR", repeated(greek, long_text)},
        {"1 MB Japanese", "ja_JP", repeated(japanese, long_text)},
        {"1 MB mixed", "en_US", repeated(mixed, long_text)},
    };
    for (mapping_case const & row : rows) {
        add<i18n::to_upper_locale>("upper case", &u_strToUpper, row);
        add<i18n::to_lower_locale>("lower case", &u_strToLower, row);
    }
    return true;
}();

} // namespace
} // namespace fl::bench
