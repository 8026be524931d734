// Conversion of streams between encodings: the places of what is lost, whatever the pieces.

#include "tools/fl_i18n/convert.hpp"

#include <algorithm>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ustring.hpp>
#include <gtest/gtest.h>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace fl::tool {

void PrintTo(conversion_loss const & loss, std::ostream * stream) {
    *stream << loss.offset << " line " << loss.line << " character " << static_cast<unsigned>(loss.character)
            << " bytes " << testing::PrintToString(loss.bytes);
}

namespace {

using namespace std::string_literals;
using kind = loss_handling::kind;

struct outcome {
    std::string bytes;
    std::vector<conversion_loss> losses;

    friend bool operator==(outcome const &, outcome const &) = default;
};

void PrintTo(outcome const & result, std::ostream * stream) {
    *stream << testing::PrintToString(result.bytes) << testing::PrintToString(result.losses);
}

outcome convert(std::string const & from, std::string const & to, loss_handling const & handling,
                std::string_view source, std::size_t piece) {
    outcome result;
    encoding_conversion conversion(from, to, handling,
                                   [&](conversion_loss const & loss) { result.losses.push_back(loss); });
    do {
        std::string_view const next = source.substr(0, piece);
        source.remove_prefix(next.size());
        result.bytes += conversion.convert(next, source.empty());
    } while (!source.empty() && !conversion.stopped());
    return result;
}

TEST(Convert, TellsThePlaceOfEveryLoss) {
    struct row {
        std::string from, to, source;
        loss_handling handling;
        std::string bytes;
        std::vector<conversion_loss> losses;
    };
    loss_handling const stop{kind::stop, {}};
    loss_handling const substitute{kind::substitute, {}};
    auto const escape = [](char const * letter) { return loss_handling{kind::escape, letter}; };
    std::vector<row> const rows = {
        {"UTF-8",
         "UTF-8",
         "a\n\xC3\xA9\xFFz\xC0\n\xE2\x82"s,
         substitute,
         "a\n\xC3\xA9\xEF\xBF\xBDz\xEF\xBF\xBD\n\xEF\xBF\xBD",
         {{4, 2, "\xFF", 0}, {6, 2, "\xC0", 0}, {8, 3, "\xE2\x82", 0}}},
        {"UTF-16LE",
         "UTF-8",
         "a\0\0\xD8"
         "b\0x"s,
         substitute,
         "a\xEF\xBF\xBD"
         "b\xEF\xBF\xBD",
         {{2, 1, "\0\xD8"s, 0}, {6, 1, "x", 0}}},
        {"UTF-16",
         "US-ASCII",
         "\xFF\xFE"
         "a\0\xAC\x20\x3D\xD8\x00\xDE"s,
         escape("C"),
         "a\\u20AC\\U0001F600",
         {{4, 1, "", 0x20AC}, {6, 1, "", 0x1F600}}},
        {"Shift_JIS",
         "US-ASCII",
         "a\x82\xA0\x81\nq\xFD"s,
         escape("X"),
         "a&#x3042;&#xFFFD;\nq&#xFFFD;",
         {{1, 1, "", 0x3042}, {3, 1, "\x81", 0}, {6, 2, "\xFD", 0}}},
        {"ISO-2022-JP",
         "US-ASCII",
         "a\x1B$B$\"$\x80$$\x1B(Bb\x1B$"s,
         escape("J"),
         "a\\u3042\\uFFFD\\u3044b\\uFFFD",
         {{4, 1, "", 0x3042}, {6, 1, "$\x80", 0}, {8, 1, "", 0x3044}, {14, 1, "\x1B$", 0}}},
        {"ISO-2022-JP", "UTF-8", "a\x1B$Zb"s, stop, "a", {{1, 1, "\x1B", 0}}},
        {"EUC-JP",
         "ISO-8859-1",
         "\xA4\xA2\x8F\xB0\nx\xA4\xFF"s,
         escape("U"),
         "{U+3042}{U+FFFD}{U+FFFD}\nx{U+FFFD}",
         {{0, 1, "", 0x3042}, {2, 1, "\x8F", 0}, {3, 1, "\xB0", 0}, {6, 2, "\xA4\xFF", 0}}},
        {"GB18030",
         "US-ASCII",
         "a\x81"
         "0\x81"
         "Az\x81"
         "0\x81"s,
         escape("D"),
         "a&#65533;0&#19972;z&#65533;",
         {{1, 1, "\x81", 0},
          {3, 1, "", 0x4E04},
          {6, 1,
           "\x81"
           "0\x81",
           0}}},
        {"windows-1252",
         "ISO-8859-1",
         "a\x80\r\n\x93",
         escape("S"),
         "a\\20AC \r\n\\201C ",
         {{1, 1, "", 0x20AC}, {4, 2, "", 0x201C}}},
        {"UTF-8",
         "Shift_JIS",
         "\xEF\xBB\xBF\xC2\xAD\xF0\x9F\x98\x80",
         escape(""),
         "%U00AD%UD83D%UDE00",
         {{3, 1, "", 0xAD}, {5, 1, "", 0x1F600}}},
        {"UTF-8",
         "ISO-2022-JP",
         "\xE3\x81\x82\xE2\x82\xAC\xE3\x81\x82",
         stop,
         "\x1B$B$\"\x1B(B",
         {{3, 1, "", 0x20AC}}},
        {"UTF-8", "US-ASCII", "a\xFF\xC3\xA9", stop, "a", {{1, 1, "\xFF", 0}}},
        {"UTF-8", "US-ASCII", "a\xC3\xA9\xFF", stop, "a", {{1, 1, "", 0xE9}}},
        {"UTF-8",
         "UTF-16LE",
         "\xEF\xBB\xBF"
         "a",
         stop,
         "\xFF\xFE"
         "a\0"s,
         {}},
        // An encoding with codes for two characters together: those of the first wait for the second.
        {"UTF-8",
         "ibm-1390",
         "\xE3\x81\x8B\xF0\x9F\x98\x80\n\xE3\x81\x8B\xE3\x82\x9A\xE3\x81\x8B\xF0\x9F\x98\x80",
         substitute,
         "\x0E\x44\x86\xFE\xFE\x0F%\x0E\xEC\xB5\x44\x86\xFE\xFE\x0F",
         {{3, 1, "", 0x1F600}, {17, 2, "", 0x1F600}}},
        {"UTF-8", "UTF-8", "", stop, "", {}},
    };
    for (row const & each : rows) {
        for (std::size_t const piece : {1u, 2u, 3u, 5u, 100u}) {
            SCOPED_TRACE(each.from + " " + each.to + " " + testing::PrintToString(each.source) +
                         " in pieces of " + std::to_string(piece));
            outcome const found = convert(each.from, each.to, each.handling, each.source, piece);
            EXPECT_EQ(found.bytes, each.bytes);
            EXPECT_EQ(found.losses, each.losses);
        }
    }
    // A mark of byte order has no place in an encoding that writes its own.
    EXPECT_EQ(convert("UTF-8", "UTF-16", stop,
                      "\xEF\xBB\xBF"
                      "a",
                      9),
              convert("UTF-8", "UTF-16", stop, "a", 9));
}

TEST(Convert, AgreesWithTheLibraryAndKnowsPlacesInRandomTexts) {
    std::mt19937 random(3);
    std::u32string const alphabet = U"abc \n\u00E9\u0416\u3042\u30A2\u4E00\uFF71";
    for (std::string const from : {"UTF-8", "UTF-16LE", "Shift_JIS", "EUC-JP", "GB18030", "ISO-2022-JP"}) {
        SCOPED_TRACE(from);
        i18n::codecvt_ustring_to_string encoder(from, true);
        for (int repeat = 0; repeat < 50; ++repeat) {
            i18n::ustring text;
            std::vector<conversion_loss> expected;
            std::uint64_t line = 1;
            for (auto count = random() % 60; count > 0; --count) {
                char32_t const c = alphabet[random() % alphabet.size()];
                if (from[0] != 'U' && from[0] != 'G' && (c == U'\u00E9' || c == U'\uFF71')) {
                    continue;
                }
                std::size_t const before = encoder.convert(text).size();
                text += static_cast<char16_t>(c);
                // In ISO-2022-JP a text ends with a return to ASCII of three bytes after the two of its
                // character.
                std::size_t const place = from[0] == 'I' ? encoder.convert(text).size() - 5 : before;
                if (c > 0x7F) {
                    expected.push_back({place, line, {}, c});
                }
                line += c == U'\n';
            }
            std::string const source = encoder.convert(text);
            i18n::codecvt_ustring_to_string library(i18n::call_back_escape_java, "US-ASCII", {});
            outcome const found = convert(from, "US-ASCII", {kind::escape, "J"}, source, 1 + random() % 9);
            EXPECT_EQ(found.bytes, library.convert(text));
            EXPECT_EQ(found.losses, expected) << testing::PrintToString(source);
        }
    }
}

TEST(Convert, DoesNotDependOnThePieces) {
    std::mt19937 random(4);
    std::string const bytes =
        "a0\n\x1B$B(Z@~{}\x0E\x0F\x30\x81\x82\xA0\xA4\x8F\xC3\xE2\xED\xF0\xFE\xFF\xD8\xDC\x88\x66"s + '\0';
    for (std::string const from : {"UTF-8", "UTF-16", "UTF-32", "UTF-7", "Shift_JIS", "EUC-JP", "GB18030",
                                   "Big5-HKSCS", "ISO-2022-JP", "ISO-2022-KR", "ISO-2022-CN", "HZ-GB-2312"}) {
        for (std::string const to : {"US-ASCII", "ISO-2022-JP", "UTF-16"}) {
            SCOPED_TRACE(from + " to " + to);
            for (int repeat = 0; repeat < 60; ++repeat) {
                std::string source;
                for (auto count = random() % 24; count > 0; --count) {
                    source += bytes[random() % bytes.size()];
                }
                SCOPED_TRACE(testing::PrintToString(source));
                loss_handling const handling{repeat % 4 == 0 ? kind::stop : kind::substitute, {}};
                outcome const whole = convert(from, to, handling, source, 100);
                EXPECT_EQ(convert(from, to, handling, source, 1), whole);
                EXPECT_EQ(convert(from, to, handling, source, 2 + random() % 5), whole);
            }
        }
    }
}

} // namespace
} // namespace fl::tool
