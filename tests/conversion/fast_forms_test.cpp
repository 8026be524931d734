#include "foundation/ascii_run.hpp"
#include "foundation/utf8_decode.hpp"
#include "foundation/utf8_encode.hpp"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <unicode/ustring.h>

namespace fl {
namespace {

constexpr unsigned seed = 20;

/// Returns what a function writes with room for `most` units; nothing may be written behind those.
template <class To, class Function>
std::basic_string<To> output(std::size_t most, Function function) {
    std::basic_string<To> result(most + 1, To(0x5A));
    std::size_t const length = function(result.data());
    EXPECT_EQ(result.back(), To(0x5A));
    return result.substr(0, length);
}

// What the conversion library makes of a text.

std::u16string decoded_by_icu(std::string const & text) {
    return output<char16_t>(text.size(), [&](char16_t * to) {
        UErrorCode status = U_ZERO_ERROR;
        std::int32_t length = 0;
        auto const source_length = static_cast<std::int32_t>(text.size());
        u_strFromUTF8WithSub(to, source_length, &length, text.data(), source_length, 0xFFFD, nullptr,
                             &status);
        return static_cast<std::size_t>(length);
    });
}

std::string encoded_by_icu(std::u16string const & text) {
    return output<char>(3 * text.size(), [&](char * to) {
        UErrorCode status = U_ZERO_ERROR;
        std::int32_t length = 0;
        auto const source_length = static_cast<std::int32_t>(text.size());
        u_strToUTF8WithSub(to, 3 * source_length, &length, text.data(), source_length, 0xFFFD, nullptr,
                           &status);
        return static_cast<std::size_t>(length);
    });
}

/// Tells whether a text is decoded as it should be, also up to its first ill-formed piece.
bool decodes(std::string const & text) {
    auto const expected = decoded_by_icu(text);
    auto const whole = output<char16_t>(text.size(), [&](char16_t * to) { return decode_utf8(to, text); });
    conversion_progress progress;
    auto const start = output<char16_t>(text.size(), [&](char16_t * to) {
        progress = decode_well_formed_utf8(to, text);
        return progress.produced;
    });
    bool const stops_well = progress.consumed == text.size() || expected[start.size()] == u'\xFFFD';
    return whole == expected && expected.starts_with(start) && stops_well;
}

TEST(Utf8Decoding, TreatsEverySequenceAsTheConversionLibrary) {
    auto const expect = [](std::string const & text) {
        if (!decodes(text)) {
            std::string shown;
            for (char const c : text) {
                shown += " " + std::to_string(static_cast<unsigned char>(c));
            }
            FAIL() << "bytes" << shown;
        }
    };
    auto const byte = [](int value) { return static_cast<char>(value); };
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            ASSERT_NO_FATAL_FAILURE(expect({byte(first), byte(second)}));
        }
    }
    // The edges of what may follow a first byte.
    constexpr int edges[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xE0, 0xFF};
    for (int first = 0xC0; first < 256; ++first) {
        for (int const second : edges) {
            for (int const third : edges) {
                for (int const fourth : {0x41, 0x80, 0xBF, 0xC3}) {
                    ASSERT_NO_FATAL_FAILURE(expect({byte(first), byte(second), byte(third), byte(fourth)}));
                }
                ASSERT_NO_FATAL_FAILURE(expect({byte(first), byte(second), byte(third)}));
            }
        }
    }
}

TEST(Utf8Forms, TreatMixedTextsAsTheConversionLibrary) {
    std::mt19937 random(seed);
    constexpr std::u16string_view pieces[] = {u"\xE9",         u"\x7FF",  u"\x800",  u"\x65E5",
                                              u"\xD7FF",       u"\xE000", u"\xFFFF", u"\xD83D\xDE00",
                                              u"\xDBFF\xDFFF", u"\xD800", u"\xDFFF"};
    for (int round = 0; round < 20000; ++round) {
        std::u16string text;
        for (auto i = random() % 8; i > 0; --i) {
            text.append(random() % 2 ? random() % 35 : random() % 3, u'a');
            text += pieces[random() % std::size(pieces)];
        }
        auto const encoded = output<char>(3 * text.size(), [&](char * to) { return encode_utf8(to, text); });
        ASSERT_EQ(encoded, encoded_by_icu(text)) << "round " << round;
        auto damaged = encoded;
        for (auto i = random() % 3; i > 0 && !damaged.empty(); --i) {
            damaged[random() % damaged.size()] = static_cast<char>(random());
        }
        ASSERT_TRUE(decodes(damaged)) << "round " << round;
    }
}

TEST(Utf8Encoding, StopsAtLoneSurrogates) {
    char bytes[32];
    auto const progress = encode_well_formed_utf8(bytes, u"ab\xD83D\xDE00\xDE00z");
    EXPECT_EQ(progress.consumed, 4u);
    EXPECT_EQ(std::string_view(bytes, progress.produced), "ab\xF0\x9F\x98\x80");
    EXPECT_EQ(encode_well_formed_utf8(bytes, u"\xD83D").consumed, 0u);
}

TEST(AsciiRun, EndsAtTheFirstOtherUnit) {
    for (std::size_t length = 0; length <= 70; ++length) {
        for (std::size_t end = 0; end <= length; ++end) {
            for (unsigned const other : {0x80u, 0xFFu, 0x100u, 0x141u, 0x8041u, 0xFFFFu, 0x7Fu, 0x1Fu, 0u}) {
                SCOPED_TRACE(testing::Message() << length << " " << end << " " << other);
                std::u16string units(length, u'~');
                units.replace(0, length / 2, length / 2, u' ');
                if (end != length) {
                    units[end] = static_cast<char16_t>(other);
                }
                std::string bytes(units.begin(), units.end());
                bool const is_byte = other < 0x100;
                std::size_t const run = other < 0x80 ? length : end;
                ASSERT_EQ(ascii_run_length(units.data(), length), run);
                auto const narrow = [&](auto function) {
                    return output<char>(length,
                                        [&](char * to) { return function(to, units.data(), length); });
                };
                auto const widen = [&](auto function) {
                    return output<char16_t>(
                        length, [&](char16_t * to) { return function(to, bytes.data(), length); });
                };
                ASSERT_EQ(narrow(narrow_ascii_run), bytes.substr(0, run));
                ASSERT_EQ(narrow(narrow_printable_run), bytes.substr(0, end));
                if (is_byte) {
                    ASSERT_EQ(ascii_run_length(bytes.data(), length), run);
                    ASSERT_EQ(widen(widen_ascii_run), units.substr(0, run));
                    ASSERT_EQ(widen(widen_printable_run), units.substr(0, end));
                }
            }
        }
    }
}

} // namespace
} // namespace fl
