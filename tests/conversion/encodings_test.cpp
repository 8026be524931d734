#include "foundation/kept_encoding.hpp"
#include "locale/encoding_registry.hpp"
#include "locale/encodings.hpp"
#include "tests/conversion/by_icu.hpp"

#include <cstring>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ustring.hpp>
#include <gtest/gtest.h>
#include <random>

namespace fl::i18n {
namespace {

constexpr unsigned seed = 7;

icu_converter open(std::string const & name) {
    UErrorCode status = U_ZERO_ERROR;
    return icu_converter(ucnv_open(name.c_str(), &status));
}

outcome<char16_t> decoded_by_icu(std::string const & encoding, bool lenient, std::string const & bytes) {
    auto const converter = open(encoding);
    UErrorCode status = U_ZERO_ERROR;
    if (!lenient) {
        ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    }
    return i18n::decoded_by_icu(converter.get(), bytes);
}

outcome<char> encoded_by_icu(std::string const & encoding, bool lenient, ustring const & text) {
    auto const converter = open(encoding);
    UErrorCode status = U_ZERO_ERROR;
    if (!lenient) {
        ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    }
    return i18n::encoded_by_icu(converter.get(), text);
}

/// Returns what a fresh converter gives, by each of its operations in turn.
template <class To, class Converter, class From>
outcome<To> converted(std::string const & encoding, bool lenient, std::basic_string<From> const & source) {
    try {
        auto const whole = Converter(encoding, lenient).convert(source);
        EXPECT_EQ(Converter(encoding, lenient).get_destination_size(source), whole.size());
        std::basic_string<To> part(whole.size() / 2 + 2, To(0x5A));
        std::size_t const room = part.size() - 1;
        EXPECT_EQ(Converter(encoding, lenient).convert(part.data(), room, source), whole.size());
        EXPECT_EQ(part.back(), To(0x5A));
        EXPECT_TRUE(part.starts_with(whole.substr(0, room)));
        return {whole};
    } catch (CvtExceptionBase const & e) {
        return {{}, e.get_excp_id()};
    }
}

/// Texts for one encoding: whatever it can express, and what it cannot.
class text_source {
public:
    text_source(std::string const & encoding, std::mt19937 & random)
        : random_(random) {
        for (std::size_t c = 0xA0; c < 0xFFFE; c += 1 + random_() % 400) {
            ustring const text(1, static_cast<char16_t>(c));
            if (auto const bytes = encoded_by_icu(encoding, false, text); bytes.excp == 0) {
                characters_.push_back(text);
                codes_.push_back(bytes.text);
            }
        }
    }

    std::string bytes() {
        return build<char>(codes_, [&] { return std::string(1, static_cast<char>(random_())); });
    }
    ustring text() {
        constexpr std::u16string_view special[] = {u"\xAD",   u"\xD83D\xDE00", u"\xD800",    u"\xDC00",
                                                   u"\x200B", u"\x304B\x309A", u"\xE6\x300", u"\xFFFD",
                                                   u"\x1A",   u"\x7F",         u"\x20AC"};
        return build<char16_t>(characters_, [&] { return ustring(special[random_() % std::size(special)]); });
    }

private:
    template <class Unit, class Other>
    std::basic_string<Unit> build(std::vector<std::basic_string<Unit>> const & known, Other other) {
        std::basic_string<Unit> result;
        for (auto i = 1 + random_() % 6; i > 0; --i) {
            result.append(random_() % 2 ? random_() % 36 : 0, Unit('a' + random_() % 26));
            for (auto k = random_() % 4; k > 0 && !known.empty(); --k) {
                result += known[random_() % known.size()];
            }
            result += random_() % 3 ? std::basic_string<Unit>(1, Unit('\n')) : other();
        }
        return result;
    }

    std::mt19937 & random_;
    std::vector<ustring> characters_;
    std::vector<std::string> codes_;
};

TEST(Encodings, ConvertAsTheConversionLibraryDoes) {
    std::mt19937 random(seed);
    for (std::int32_t i = 0; i < ucnv_countAvailable(); ++i) {
        std::string const name = ucnv_getAvailableName(i);
        if (name == "x11-compound-text" || name.starts_with("ISCII")) {
            continue; // the conversion library crashes on some texts, or counts others wrongly
        }
        text_source source(name, random);
        for (int round = 0; round < 24; ++round) {
            SCOPED_TRACE(name + ", seed " + std::to_string(seed) + ", round " + std::to_string(round));
            bool const lenient = round % 2 == 0;
            auto const bytes = source.bytes();
            ASSERT_EQ((converted<char16_t, codecvt_string_to_ustring>(name, lenient, bytes)),
                      decoded_by_icu(name, lenient, bytes));
            auto const text = source.text();
            ASSERT_EQ((converted<char, codecvt_ustring_to_string>(name, lenient, text)),
                      encoded_by_icu(name, lenient, text));
        }
    }
}

TEST(Encodings, ConvertLongTextsPieceByPiece) {
    for (char const * const name : {"Shift_JIS", "GB18030", "UTF-8"}) {
        for (char const * const end : {"", "\x93", "\xFF\x93z"}) {
            SCOPED_TRACE(testing::Message() << name << " " << std::strlen(end));
            ustring text = u"a";
            for (char16_t c = 0; c < 2500; ++c) {
                text += static_cast<char16_t>(0x3042 + c % 60);
            }
            auto const bytes = encoded_by_icu(name, true, text).text + end;
            ASSERT_EQ((converted<char16_t, codecvt_string_to_ustring>(name, true, bytes)),
                      decoded_by_icu(name, true, bytes));
            text += end[0] ? u"\xD83D\xDE00\xD800" : u"";
            ASSERT_EQ((converted<char, codecvt_ustring_to_string>(name, true, text)),
                      encoded_by_icu(name, true, text));
        }
    }
}

TEST(Encodings, KeepEverySingleByteAndControl) {
    // Shift_JIS and the code pages of old turn three control characters round; only printable ASCII may be
    // copied.
    for (char const * const name : {"Shift_JIS", "IBM437", "windows-1252", "EUC-JP", "IBM-037", "US-ASCII"}) {
        for (unsigned value = 0; value < 256; ++value) {
            SCOPED_TRACE(testing::Message() << name << " " << value);
            std::string const bytes = "abc" + std::string(1, static_cast<char>(value)) + "defg";
            ASSERT_EQ((converted<char16_t, codecvt_string_to_ustring>(name, true, bytes)),
                      decoded_by_icu(name, true, bytes));
            ustring const text = u"abc" + ustring(1, static_cast<char16_t>(value)) + u"defg";
            ASSERT_EQ((converted<char, codecvt_ustring_to_string>(name, true, text)),
                      encoded_by_icu(name, true, text));
        }
    }
}

TEST(Encodings, ForgetEarlierTexts) {
    // In this encoding a soft hyphen has the shorter substitution character, which a lone surrogate shall not
    // get.
    codecvt_ustring_to_string c("ibm-942_P12A-1999", true);
    ustring const text = u"\xE6EF\xDA16z\xAD";
    auto const bytes = c.convert(text);
    EXPECT_EQ(bytes, encoded_by_icu("ibm-942_P12A-1999", true, text).text);
    EXPECT_EQ(c.convert(text), bytes);
    EXPECT_EQ(to_string(text, c), bytes);
}

TEST(Encodings, AreOpenedAnewWhereConvertersCannotBeCloned) {
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(codecvt_ustring_to_string("x11-compound-text", true).convert(u"a\xE9\x436"),
                  "a\xE9\x1B-L\xD6");
    }
}

TEST(Encodings, ConvertMostTextsByTables) {
    char bytes[32];
    char16_t units[32];
    auto const & encoding = *lcmgmt::find_encoding("Shift_JIS");
    EXPECT_EQ(encoding.decode(units, "ab\x93\xFA\x96\x7Bz").consumed, 7u);
    EXPECT_EQ(encoding.decode(units, "ab\x93").consumed, 2u);
    EXPECT_EQ(encoding.decode(units, "\xFC\xFC").consumed, 0u);
    EXPECT_EQ(encoding.encode(bytes, u"ab\x65E5\x672C\xFF71z").produced, 8u);
    EXPECT_EQ(encoding.encode(bytes, u"ab\xD83D\xDE00").consumed, 2u);
    EXPECT_EQ(lcmgmt::find_encoding("ISO-2022-JP")->decode(units, "ab").consumed, 0u);
}

TEST(Encodings, AreKeptOnce) {
    auto const * const encoding = lcmgmt::find_encoding("Shift_JIS");
    EXPECT_EQ(lcmgmt::find_encoding("shift-jis"), encoding);
    EXPECT_NE(lcmgmt::find_encoding("EUC-JP"), encoding);
    EXPECT_EQ(lcmgmt::find_encoding("no such encoding"), nullptr);
    // Any number of these could be asked for.
    EXPECT_EQ(lcmgmt::find_encoding("IBM-037,swaplfnl"), nullptr);
    EXPECT_EQ(codecvt_ustring_to_string("IBM-037,swaplfnl", true).convert(u"\n"), "\x15");
    EXPECT_EQ(codecvt_ustring_to_string("IBM-037", true).convert(u"\n"), "\x25");
    // More spellings than are remembered.
    for (int i = 0; i < 1000; ++i) {
        std::string name = "Shift_JIS";
        for (int bits = i; bits != 0; bits /= 2) {
            name += bits % 2 ? '-' : '_';
        }
        ASSERT_EQ(lcmgmt::find_encoding(name), encoding) << name;
    }
}

TEST(EncodingRegistry, TellsOptionsApart) {
    lcmgmt::encoding_registry registry;
    auto const * const plain = registry.add("IBM-037", open("IBM-037"));
    EXPECT_EQ(registry.add("cp037", open("cp037")), plain);
    EXPECT_NE(registry.add("LMBCS-1,locale=ja", open("LMBCS-1,locale=ja")),
              registry.add("LMBCS-1", open("LMBCS-1")));
    EXPECT_EQ(registry.find("cp037"), plain);
    EXPECT_EQ(registry.find("cp37"), nullptr);
    // Long names of the same beginning, end and length.
    registry.add("Extended_UNIX_Code_for_Japanese", open("EUC-JP"));
    EXPECT_EQ(registry.find("Extended_UNIX_CODE_for_Japanese"), nullptr);
}

} // namespace
} // namespace fl::i18n
