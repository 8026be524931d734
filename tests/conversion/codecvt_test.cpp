#include "tests/conversion/classic_locale.hpp"

#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/ustring.hpp>
#include <gtest/gtest.h>

namespace fl::i18n {
namespace {

/// Returns the id of the conversion exception that an action throws, 0 when it throws none.
template <class Action>
int excp_id_of(Action action) {
    try {
        action();
    } catch (CvtExceptionBase const & e) {
        return e.get_excp_id();
    }
    return 0;
}

struct mode_row {
    char const * name;
    int mode;
    int to_unicode_excp;
    int from_unicode_excp;
    char const * ascii; ///< what a, U+20AC, U+1F600 and z become in US-ASCII; null when that fails
};

class CallBackModes : public testing::TestWithParam<mode_row> {};

INSTANTIATE_TEST_SUITE_P(All, CallBackModes,
                         testing::Values(mode_row{"Default", 0, 0, 0, "a\x1A\x1Az"},
                                         mode_row{"Stop", 1, 0, 0, nullptr},
                                         mode_row{"Skip", 32, 4, 4, "a\x1A\x1Az"},
                                         mode_row{"EscapeJava", 512, 4, 0, "a\\u20AC\\uD83D\\uDE00z"},
                                         mode_row{"EscapeC", 1024, 4, 0, "a\\u20AC\\U0001F600z"},
                                         mode_row{"EscapeXmlDec", 2048, 4, 0, "a&#8364;&#128512;z"},
                                         mode_row{"EscapeXmlHex", 4096, 4, 0, "a&#x20AC;&#x1F600;z"},
                                         mode_row{"EscapeUnicode", 8192, 4, 0, "a{U+20AC}{U+1F600}z"},
                                         mode_row{"EscapeCss2", 16384, 4, 0, "a\\20AC \\1F600 z"},
                                         mode_row{"TwoEscapeBits", 768, 1, 0, "a%U20AC%UD83D%UDE00z"},
                                         mode_row{"EscapeAndSkipBits", 544, 1, 0, "a%U20AC%UD83D%UDE00z"},
                                         mode_row{"LowestEscapeBit", 256, 1, 0, "a%U20AC%UD83D%UDE00z"},
                                         mode_row{"Two", 2, 1, 1, "a\x1A\x1Az"},
                                         mode_row{"HighBit", 32768, 1, 1, "a\x1A\x1Az"}),
                         [](auto const & parameters) { return parameters.param.name; });

TEST_P(CallBackModes, AreAppliedOrRefused) {
    auto const & row = GetParam();
    auto const mode = codecvt_call_back_mode(row.mode);
    // From a mode in force, so that a refusal shows that it was undone.
    codecvt_string_to_ustring to("UTF-8", false);
    codecvt_ustring_to_string from("US-ASCII", false);
    EXPECT_EQ(excp_id_of([&] { to.change_call_back(mode); }), row.to_unicode_excp);
    EXPECT_EQ(excp_id_of([&] { from.change_call_back(mode, "?"); }), row.from_unicode_excp);
    EXPECT_EQ(to.get_call_back_mode(), row.to_unicode_excp ? 0 : row.mode);
    EXPECT_EQ(from.get_call_back_mode(), row.from_unicode_excp ? 0 : row.mode);
    EXPECT_EQ(excp_id_of([&] { EXPECT_EQ(to.convert("a\xFF"), u"a\xFFFD"); }), row.mode == 1 ? 5 : 0);
    EXPECT_EQ(excp_id_of([&] { EXPECT_EQ(from.convert(u"a\x20AC\xD83D\xDE00z"), row.ascii); }),
              row.ascii ? 0 : 5);

    EXPECT_EQ(excp_id_of([&] { codecvt_string_to_ustring(mode, "UTF-8"); }), row.to_unicode_excp);
    EXPECT_EQ(excp_id_of([&] { codecvt_ustring_to_string(mode, "US-ASCII", "?"); }), row.from_unicode_excp);
    to.reset_call_back();
    from.reset_call_back();
    EXPECT_EQ(to.get_call_back_mode(), call_back_default);
    EXPECT_EQ(from.get_call_back_mode(), call_back_default);
    EXPECT_EQ(to.convert("a\xFF"), u"a\xFFFD");
    EXPECT_EQ(from.convert(u"\x20AC"), "\x1A");
}

TEST(CallBackSubstitute, SetsTheBytes) {
    struct row {
        char const * name;
        std::string substitution;
        int excp;
    };
    for (row const & r :
         {row{"one byte", "?", 0}, row{"none", "", 1}, row{"more than the encoding has", "??", 3},
          row{"most that can be counted", std::string(127, '?'), 3},
          row{"too many", std::string(128, '?'), 6}}) {
        SCOPED_TRACE(r.name);
        codecvt_ustring_to_string c("US-ASCII", false);
        EXPECT_EQ(excp_id_of([&] { c.change_call_back(call_back_substitute, r.substitution); }), r.excp);
        EXPECT_EQ(c.get_call_back_mode(), call_back_default);
        EXPECT_EQ(c.convert(u"a\x20AC\x62"), r.excp ? "a\x1A\x62" : "a?b");
    }
    codecvt_string_to_ustring to("UTF-8", true);
    EXPECT_THROW(to.change_call_back(call_back_substitute), CvtNonSupportedMode);
}

TEST(NamedConverters, StopAtInvalidInputAndStayUsable) {
    struct row {
        char const * name;
        char const * encoding;
        std::string bytes;
        int excp;
    };
    for (row const & r :
         {row{"malformed", "UTF-8", "a\xFFz", 5}, row{"unassigned", "Shift_JIS", "a\xFC\xFCz", 5},
          row{"truncated", "UTF-8", "a\xE2\x82", 7}, row{"shifted state", "ISO-2022-JP", "\x1B$BF|}}", 5}}) {
        SCOPED_TRACE(r.name);
        codecvt_string_to_ustring c(r.encoding, false);
        char16_t buffer[8];
        EXPECT_EQ(excp_id_of([&] { c.convert(r.bytes); }), r.excp);
        EXPECT_EQ(excp_id_of([&] { c.get_destination_size(r.bytes); }), r.excp);
        EXPECT_EQ(excp_id_of([&] { c.convert(buffer, 8, r.bytes); }), r.excp);
        EXPECT_EQ(c.convert("F|"), u"F|");
    }
    codecvt_ustring_to_string c("ISO-2022-JP", false);
    EXPECT_THROW(c.convert(u"\x65E5\x0E01"), CvtInvalidCharacter);
    EXPECT_THROW(c.convert(u"\x65E5\xD800"), CvtConversionFailure);
    EXPECT_EQ(c.convert(u"\x65E5"), "\x1B$BF|\x1B(B");
}

TEST(NamedConverters, FillTheBufferOfTheCaller) {
    codecvt_ustring_to_string const c("ISO-2022-JP", false);
    std::string const full = "\x1B$BF|\x1B(Ba";
    for (std::size_t room = 1; room <= full.size() + 1; ++room) {
        std::string buffer(full.size() + 2, '#');
        EXPECT_EQ(c.convert(buffer.data(), room, u"\x65E5\x61"), full.size());
        auto const filled = std::min(room, full.size());
        EXPECT_EQ(buffer, full.substr(0, filled) + std::string(buffer.size() - filled, '#'));
    }
    EXPECT_EQ(c.get_destination_size(u"\x65E5\x61"), full.size());
}

TEST(NamedConverters, MoveTheirConverter) {
    codecvt_string_to_ustring to("ISO-8859-1", false);
    codecvt_string_to_ustring to_2(std::move(to));
    EXPECT_EQ(to_2.convert("\xE9"), u"\xE9");
    codecvt_ustring_to_string from("ISO-8859-1", false);
    codecvt_ustring_to_string from_2("UTF-8", true);
    from_2 = std::move(from);
    EXPECT_EQ(from_2.convert(u"\xE9"), "\xE9");
    EXPECT_EQ(from_2.get_call_back_mode(), call_back_stop);
    char16_t buffer[1];
    EXPECT_THROW(to.convert("a"), CvtConversionFailure);
    EXPECT_THROW(to.get_call_back_mode(), CvtConversionFailure);
    EXPECT_THROW(from.get_call_back_mode(), CvtConversionFailure);
    EXPECT_THROW(to.convert(buffer, 1, "a", 1), CvtConversionFailure);
    EXPECT_THROW(from.get_destination_size(u"a"), CvtConversionFailure);
    EXPECT_THROW(from.change_call_back(call_back_stop, {}), CvtConversionFailure);
}

using LocaleEncodings = ClassicLocale;

TEST_F(LocaleEncodings, StandForAnEmptyName) {
    EXPECT_EQ(codecvt_string_to_ustring("", false).convert("\xC3\xA9"), u"\xE9");
    EXPECT_EQ(codecvt_ustring_to_string(call_back_stop, "", {}).convert(u"\xE9"), "\xC3\xA9");
}

TEST_F(LocaleEncodings, GiveTheTerminalConverters) {
    auto const expected = [](LcOptDataType item, ustring const & text) {
        auto const name = std::get<std::string>(QzLocale::global().getOptData(item));
        return codecvt_ustring_to_string(name, true).convert(text);
    };
    ustring const text = u"a\xE9\x65E5z";
    auto const convert = [&](converter<char, char16_t> const & c) {
        std::string result(c.get_destination_size(text), '\0');
        c.convert(result.data(), result.size(), text);
        return result;
    };
    EXPECT_EQ(convert(*create_codecvt_ustring_to_terminal()), expected(LcOptDataType::termencoding, text));
    EXPECT_EQ(convert(*create_codecvt_ustring_to_terminal_output()),
              expected(LcOptDataType::termoutputencoding, text));
    EXPECT_EQ(create_codecvt_terminal_to_ustring()->get_destination_size("abc"), 3u);
    EXPECT_EQ(create_codecvt_terminal_input_to_ustring()->get_destination_size("abc"), 3u);
}

TEST(Ascii, ConvertsATextInItsOwnPlace) {
    std::string const text = "What stands here is longer than one block, and more than two.";
    for (std::size_t length = 1; length <= text.size(); ++length) {
        std::u16string units(length, u'\0');
        auto * const bytes = reinterpret_cast<char *>(units.data());
        text.copy(bytes, length);
        codecvt_ascii_to_ustring(false).convert(units.data(), length, bytes, length);
        ASSERT_EQ(units, std::u16string(text.begin(), text.begin() + std::ptrdiff_t(length)));
        codecvt_ustring_to_ascii(false).convert(bytes, length, units.data(), length);
        ASSERT_EQ(std::string(bytes, length), text.substr(0, length));
    }
}

TEST(Ascii, ReplacesOrThrows) {
    char16_t units[4] = {};
    char bytes[4] = {};
    codecvt_ascii_to_ustring lenient_to(true), strict_to(false);
    codecvt_ustring_to_ascii lenient_from(true), strict_from(false);
    EXPECT_EQ(lenient_to.convert("a\x7F\x80z"), u"a\x7F\xFFFDz");
    EXPECT_EQ(lenient_from.convert(u"a\x7F\x80\xE9\x0141"), "a\x7F\xFF\xFF\xFF");
    EXPECT_EQ(strict_to.convert("a\x7F"), u"a\x7F");
    EXPECT_EQ(strict_from.convert(u"a\x7F"), "a\x7F");
    EXPECT_THROW(strict_to.convert("ab\x80"), CvtInvalidCharacter);
    EXPECT_THROW(strict_from.convert(u"ab\x80"), CvtInvalidCharacter);
    EXPECT_THROW(strict_to.get_destination_size("ab\x80"), CvtInvalidCharacter);
    EXPECT_THROW(strict_from.get_destination_size(u"ab\x80"), CvtInvalidCharacter);
    EXPECT_EQ(lenient_to.get_destination_size("ab\x80"), 3u);
    // A short buffer holds what fits, and that is what is counted.
    EXPECT_EQ(strict_to.convert(units, 2, "ab\x80"), 2u);
    EXPECT_EQ(strict_from.convert(bytes, 2, u"ab\x80"), 2u);
    EXPECT_EQ(std::u16string_view(units, 4), std::u16string_view(u"ab\0\0", 4));
    EXPECT_EQ(std::string_view(bytes, 4), std::string_view("ab\0\0", 4));
}

TEST(JavaUtf8, EncodesEveryUnitOnItsOwn) {
    struct row {
        ustring units;
        std::string bytes;
    };
    codecvt_ustring_to_java_nonstandard_utf8 c;
    for (row const & r :
         {row{ustring(1, u'\0'), "\xC0\x80"}, row{u"\xD83D\xDE00", "\xED\xA0\xBD\xED\xB8\x80"},
          row{u"\xDE00", "\xED\xB8\x80"}, row{u"a\x7FF\x800", "a\xDF\xBF\xE0\xA0\x80"}}) {
        EXPECT_EQ(c.convert(r.units), r.bytes);
        EXPECT_EQ(c.get_destination_size(r.units), r.bytes.size());
        std::string buffer(r.bytes.size() + 3, '#');
        EXPECT_EQ(c.convert(buffer.data(), buffer.size() - 1, r.units), r.bytes.size());
        EXPECT_EQ(buffer, r.bytes + "###");
    }
    char one = '#';
    EXPECT_EQ(c.convert(&one, 1, u"ab"), 2u);
    EXPECT_EQ(one, 'a');
    EXPECT_EQ(c.convert(ustring(1000, u'\x800')).size(), 3000u);
    EXPECT_THROW(c.convert(u"a", 0x40000000), CvtSizeTooLarge);
}

TEST(WideConverters, CopyUnits) {
    codecvt_wstring_to_ustring to;
    codecvt_ustring_to_wstring from;
    char16_t units[2] = {u'#', u'#'};
    EXPECT_EQ(to.convert(L"a\xFFFF"), u"a\xFFFF");
    EXPECT_EQ(from.convert(u"\xD800z"), L"\xD800z");
    EXPECT_EQ(to.get_destination_size(L"abc"), 3u);
    EXPECT_EQ(to.convert(units, 1, L"abc"), 3u);
    EXPECT_EQ(std::u16string_view(units, 2), u"a#");
}

TEST(StandardEncodingName, PrefersMimeNames) {
    struct row {
        std::string name;
        std::string standard;
    };
    for (row const & r :
         {row{"utf8", "UTF-8"}, row{"l1", "ISO-8859-1"}, row{"hp15CN", "GB2312"}, row{"IBM-1141", "IBM01141"},
          row{"cp1125", "ibm-1125"}, row{"no such encoding", ""}, row{"", ""}}) {
        EXPECT_EQ(get_standard_encoding_name(r.name), r.standard) << r.name;
    }
}

/// Counts the questions for the length of a result.
class asked_converter : public codecvt_string_to_ustring {
public:
    using codecvt_string_to_ustring::codecvt_string_to_ustring;
    mutable int questions = 0;

private:
    std::size_t do_get_destination_size(char const * source, std::size_t length) const override {
        ++questions;
        return codecvt_string_to_ustring::do_get_destination_size(source, length);
    }
};

TEST(NamedConverters, OfTheCallersClassAreAskedForTheLength) {
    asked_converter const c("Shift_JIS", false);
    EXPECT_EQ(to_ustring("ab", c), u"ab");
    EXPECT_EQ(c.questions, 1);
}

} // namespace
} // namespace fl::i18n
