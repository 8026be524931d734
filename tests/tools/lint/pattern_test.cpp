// Message texts as lint reads them: a fault exactly where the formatter's parser has one, at the right place.

#include "tools/fl_i18n/lint/pattern.hpp"
#include "tools/fl_i18n/lint/text_rules.hpp"

#include <algorithm>
#include <fl/i18n/message_catalog.hpp>
#include <fl/i18n/ustring.hpp>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <unicode/messagepattern.h>
#include <unicode/msgfmt.h>
#include <vector>

namespace fl::tool::lint {
namespace {

/// Returns a text whose places are the indices of its units.
placed_text place(i18n::ustring const & text) {
    placed_text result;
    result.units = text;
    for (std::uint32_t i = 0; i <= text.size(); ++i) {
        result.places.push_back(i);
    }
    return result;
}

struct outcome {
    bool accepted = false;
    std::vector<i18n::ustring> holes;
    friend bool operator==(outcome const &, outcome const &) = default;
};

outcome read(i18n::ustring const & text) {
    pattern const result = read_pattern(place(text));
    outcome seen{!result.fault, {}};
    for (hole const & each : result.holes) {
        if (!result.fault) {
            seen.holes.push_back(each.name);
        }
    }
    return seen;
}

/// Reads with the parser of the formatter.
outcome parse(i18n::ustring const & text) {
    UErrorCode status = U_ZERO_ERROR;
    auto const length = static_cast<std::int32_t>(text.size());
    auto const quoted =
        icu::MessageFormat::autoQuoteApostrophe(icu::UnicodeString(text.data(), length), status);
    icu::MessagePattern parsed(status);
    parsed.parse(quoted, nullptr, status);
    outcome seen{static_cast<bool>(U_SUCCESS(status)), {}};
    for (std::int32_t i = 0; seen.accepted && i < parsed.countParts(); ++i) {
        if (parsed.getPartType(i) == UMSGPAT_PART_TYPE_ARG_START) {
            auto const name = parsed.getSubstring(parsed.getPart(i + 1));
            seen.holes.emplace_back(name.getBuffer(), static_cast<std::size_t>(name.length()));
        }
    }
    return seen;
}

TEST(LintPattern, IsRefusedExactlyWhenTheParserRefuses) {
    std::vector<i18n::ustring> const pieces = {u"{",
                                               u"}",
                                               u"{0}",
                                               u"{1,number}",
                                               u"{0,plural,",
                                               u"{0,select,",
                                               u"{n,selectordinal,",
                                               u"{0,choice,",
                                               u"other",
                                               u"other{",
                                               u"one{",
                                               u"=1{",
                                               u"=",
                                               u"offset:1",
                                               u"offset:",
                                               u"#",
                                               u"|",
                                               u"0#",
                                               u"1<",
                                               u"\u2264",
                                               u"\u221E",
                                               u"-\u221E#",
                                               u"'",
                                               u"''",
                                               u"'{",
                                               u"}'",
                                               u"}}",
                                               u" ",
                                               u",",
                                               u"a",
                                               u"0",
                                               u"01",
                                               u"32767",
                                               u"32768",
                                               u"1.5",
                                               u"+-1",
                                               u"1e5",
                                               u"+.5",
                                               u"{0,date,",
                                               u"{x1,",
                                               u"\u200E",
                                               u"{0,ploral,",
                                               u"\xD83D\xDE00",
                                               u"\xD83D",
                                               u"{0, number , #}",
                                               u"zero{x}",
                                               u"other{#}}",
                                               u"-"};
    std::mt19937 random(1);
    std::size_t accepted = 0;
    for (int i = 0; i < 100000; ++i) {
        i18n::ustring text;
        for (auto count = 1 + random() % 9; count > 0; --count) {
            text += pieces[random() % pieces.size()];
        }
        outcome const expected = parse(text);
        ASSERT_EQ(read(text), expected) << i18n::ustring_to_utf8(text);
        accepted += expected.accepted && !expected.holes.empty();
    }
    EXPECT_GT(accepted, 2000u);
}

/// Tells whether the formatter leaves out what a date's style ends with.
bool is_cut_short(hole const & date) {
    i18n::ustring const text = u"{0,date," + date.style + u"'@'}";
    return i18n::MessageCatalog::GetFormattedMessage(text, {0.0}, std::nullopt).find(u'@') == text.npos;
}

TEST(LintPattern, IsRefusedExactlyWhenTheFormatterRefusesOrCutsADateShort) {
    std::vector<i18n::ustring> const types = {u"number",  u"Date",     u"time",  u"spellout",
                                              u"ordinal", u"duration", u"nmber", u"n"};
    std::vector<i18n::ustring> const styles = {
        u"integer", u"Percent",   u"currency", u"short", u"::", u"::yMd", u"::.00",
        u"::x",     u"scale/100", u"0",        u"#,##0", u".",  u"E0",    u"yyyy",
        u"'",       u"''",        u" ",        u"%",     u"{",  u"}",     u"%spellout-ordinal",
        u";",       u"*"};
    std::mt19937 random(2);
    format_rules rules;
    std::size_t refused = 0;
    for (int i = 0; i < 5000; ++i) {
        i18n::ustring text = u"{0," + types[random() % types.size()];
        for (auto count = random() % 4; count > 0; --count) {
            text += (text.find(u',', 3) == text.npos ? u"," : u"") + styles[random() % styles.size()];
        }
        text += u"}";
        source_text const source(std::string(100, ' '));
        strictness const measure;
        file_findings out(source, measure);
        pattern const found = read_pattern(place(text));
        check_pattern(found, out);
        if (!found.fault) {
            rules.check(found, out);
        }
        auto const findings = out.take();
        bool const ours = std::ranges::any_of(findings, [](finding const & each) {
            return each.broken->name == "bad-pattern" || each.broken->name == "bad-format";
        });
        bool theirs = false;
        try {
            i18n::MessageCatalog::GetCustomHoleType(text, 0);
        } catch (i18n::MessageCatalog::MessageFormatIncorrect const &) {
            theirs = true;
        }
        ASSERT_EQ(ours, theirs || (ours && is_cut_short(found.holes.at(0)))) << i18n::ustring_to_utf8(text);
        refused += theirs;
    }
    EXPECT_GT(refused, 500u);
    EXPECT_LT(refused, 4500u);
}

} // namespace
} // namespace fl::tool::lint
