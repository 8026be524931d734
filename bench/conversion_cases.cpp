#include "bench/conversion_cases.hpp"

#include <algorithm>
#include <fl/i18n/ustring.hpp>
#include <random>
#include <string_view>
#include <unicode/utf16.h>
#include <utility>

namespace fl::bench {

namespace {

struct script {
    char const * name;
    std::u16string_view text;
    bool is_well_formed = true;
};

constexpr script scripts[] = {
    {"ascii", u"Cannot open the file: it is in use by another program. "},
    {"latin",
     u"Les \u00E9l\u00E8ves fran\u00E7ais \u00E9taient l\u00E0-bas, \u00E0 c\u00F4t\u00E9 des autres. "},
    {"cyrillic",
     u"\u041D\u0435 \u0443\u0434\u0430\u043B\u043E\u0441\u044C \u043E\u0442\u043A\u0440\u044B\u0442\u044C "
     u"\u0444\u0430\u0439\u043B. "},
    {"japanese", u"\u30ED\u30B1\u30FC\u30EB\u540D\u304C\u7121\u52B9\u3067\u3059\u3002"
                 u"\u30D5\u30A1\u30A4\u30EB\u3092\u958B\u3051\u307E\u305B\u3093\u3002"},
    {"mixed", u"\u65E5\u672C\u8A9E text \u306EABC\u30C6\u30AD\u30B9\u30C8 12, caf\u00E9 \U0001F600 "},
    {"emoji", u"\U0001F600\U0001F601 ok \U0001F602"},
    {"lone surrogates", u"ab\xD800 cd\xDC00\u00E9 ", false},
};

/// Returns a text of pieces of another in an order without a pattern, as a processor learns the pattern of a
/// text that is repeated.
std::u16string shuffled(script const & from, std::size_t length) {
    std::minstd_rand random(1);
    std::u16string result;
    while (result.size() < length) {
        auto const start = random() % from.text.size();
        for (char16_t const unit : from.text.substr(start, 1 + random() % 10)) {
            // No half of a pair without the other, unless the text has it so.
            bool const after_high = !result.empty() && U16_IS_LEAD(result.back());
            if (U16_IS_TRAIL(unit) == after_high || !from.is_well_formed) {
                result += unit;
            }
        }
        if (U16_IS_LEAD(result.back())) {
            result.pop_back();
        }
    }
    result.resize(length - (U16_IS_LEAD(result[length - 1]) ? 1 : 0));
    return result;
}

std::vector<utf8_case> make_utf8_cases() {
    std::vector<utf8_case> result;
    for (script const & s : scripts) {
        for (auto const & [size, length] : {std::pair("20 units", 20), {"1 MB", 500'000}}) {
            auto const utf16 = shuffled(s, static_cast<std::size_t>(length));
            result.push_back(
                {std::string(s.name) + ' ' + size, utf16, i18n::ustring_to_utf8(utf16), s.is_well_formed});
        }
    }
    return result;
}

} // namespace

std::vector<utf8_case> const & utf8_cases() {
    static std::vector<utf8_case> const result = make_utf8_cases();
    return result;
}

std::vector<encoding_case> const & encoding_cases() {
    static std::string const english = "Cannot open file 12.";
    static std::u16string const wide_english(english.begin(), english.end());
    static std::u16string const japanese =
        u"\u30D5\u30A1\u30A4\u30EB 12 \u3092\u958B\u3051\u307E\u305B\u3093\u3067\u3057\u305F\u3002!";
    static std::vector<encoding_case> const result = {
        {"en_US.UTF-8", "UTF-8", "ascii in UTF-8", english, wide_english},
        {"ja_JP.UTF-8", "UTF-8", "japanese in UTF-8", i18n::ustring_to_utf8(japanese), japanese},
        {"ja_JP.Shift_JIS", "Shift_JIS", "ascii in Shift_JIS", english, wide_english},
        {"ja_JP.Shift_JIS", "Shift_JIS", "japanese in Shift_JIS",
         "\x83t\x83@\x83"
         "C\x83\x8B 12 \x82\xF0\x8AJ\x82\xAF\x82\xDC\x82\xB9\x82\xF1\x82\xC5\x82\xB5\x82\xBD\x81"
         "B!",
         japanese},
        {"de_DE.windows-1252", "windows-1252", "ascii in windows-1252", english, wide_english},
        {"de_DE.windows-1252", "windows-1252", "latin in windows-1252",
         "R\xFC"
         "ckg\xE4ngig gew\xE4hlt.",
         u"R\u00FCckg\u00E4ngig gew\u00E4hlt."},
    };
    return result;
}

} // namespace fl::bench
