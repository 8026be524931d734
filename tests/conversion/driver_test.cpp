#include "conversion/driver.hpp"

#include "conversion/utf8.hpp"
#include "foundation/icu_converter.hpp"

#include <gtest/gtest.h>
#include <vector>

namespace fl::i18n {
namespace {

struct encoding_row {
    char const * name;
    char const * encoding;
    char16_t const * text;
};

icu_converter open(char const * encoding) {
    UErrorCode status = U_ZERO_ERROR;
    icu_converter converter(ucnv_open(encoding, &status));
    EXPECT_TRUE(U_SUCCESS(status)) << encoding;
    return converter;
}

/// Converts under many small limits, and into buffers of every size, and expects `full` from each.
template <class Direction>
void expect_same_under_all_limits(UConverter * converter,
                                  std::basic_string<typename Direction::from> const & source,
                                  std::basic_string<typename Direction::to> const & full) {
    for (std::size_t const chunk : {1u, 2u, 3u, 7u, 1000u}) {
        for (std::size_t const output : {1u, 2u, 5u, 24u, 1024u}) {
            for (std::size_t const piece : {1u, 3u}) {
                driver_limits const limits{{output, output + 1}, chunk, piece};
                ASSERT_EQ(run_driver<Direction>(converter, source.data(), source.size(), limits), full)
                    << chunk << " " << output << " " << piece;
            }
        }
    }
    using unit = typename Direction::to;
    for (std::size_t room = 0; room <= full.size() + 2; ++room) {
        std::basic_string<unit> buffer(room + 4, unit(0x5A));
        ASSERT_EQ(
            run_pass<Direction>(converter, buffer.data(), room, source.data(), source.size(), {{}, 2, 1}),
            full.size());
        auto const written = std::min(room, full.size());
        ASSERT_EQ(buffer,
                  full.substr(0, written) + std::basic_string<unit>(buffer.size() - written, unit(0x5A)));
    }
}

class Driver : public testing::TestWithParam<encoding_row> {};

INSTANTIATE_TEST_SUITE_P(Encodings, Driver,
                         // The last minds where it is cut, as the conversion library does it.
                         testing::Values(encoding_row{"Utf8", "UTF-8",
                                                      u"a\xE9\x65E5\xD83D\xDE00\xD83D\xDE01z"},
                                         encoding_row{"ShiftJis", "Shift_JIS", u"a\x65E5\x672C\xFF71z\x8A9E"},
                                         encoding_row{"Gb18030", "GB18030", u"\x4E2D\x6587\xD83D\xDE00\xE9z"},
                                         encoding_row{"Iso2022Jp", "ISO-2022-JP", u"a\x65E5\x672Cz\x8A9E"},
                                         encoding_row{"EucKr", "EUC-KR", u"\xD55C\xAD6Dz\xC5B4"},
                                         encoding_row{"Utf7", "UTF-7", u"a+\x65E5z\xD83D\xDE00~"},
                                         encoding_row{"Utf16Le", "UTF-16LE", u"a\xD83D\xDE00z\x65E5"},
                                         encoding_row{"Ebcdic", "IBM-037", u"Hello, World"},
                                         encoding_row{"Lmbcs", "LMBCS-16", u"\xE9\x3B1\x65E5z\x3B2\x416"}),
                         [](auto const & parameters) { return parameters.param.name; });

TEST_P(Driver, IsIndependentOfItsLimits) {
    auto const converter = open(GetParam().encoding);
    ustring const text = GetParam().text;
    // The reference is the conversion library's own function for whole strings.
    std::string bytes(200, '\0');
    UErrorCode status = U_ZERO_ERROR;
    auto const length = ucnv_fromUChars(converter.get(), bytes.data(), 200, text.data(),
                                        static_cast<std::int32_t>(text.size()), &status);
    ASSERT_EQ(status, U_ZERO_ERROR);
    bytes.resize(static_cast<std::size_t>(length));
    expect_same_under_all_limits<from_unicode_direction>(converter.get(), text, bytes);
    expect_same_under_all_limits<to_unicode_direction>(converter.get(), bytes, text);
}

TEST_P(Driver, ConvertsLongTexts) {
    auto const converter = open(GetParam().encoding);
    for (int const times : {100, 200, 10000}) {
        ustring text;
        for (int i = 0; i < times; ++i) {
            text += GetParam().text;
        }
        auto const bytes = run_driver<from_unicode_direction>(converter.get(), text.data(), text.size());
        EXPECT_TRUE(run_driver<to_unicode_direction>(converter.get(), bytes.data(), bytes.size()) == text);
    }
}

TEST(OutputBuffer, KeepsToItsStrategy) {
    struct row {
        char const * name;
        std::size_t source;
        std::size_t result;
        std::vector<std::size_t> capacities;
    };
    for (row const & r : {row{"short", 10, 1024, {1024}}, row{"longest short", 1024, 1025, {1024, 1025}},
                          row{"long", 1025, 1025, {1025}}, row{"long and growing", 1025, 1026, {1025, 1026}},
                          row{"shrinking", 32768, 7, {32768}}, row{"capped", 40000, 32768, {32768}},
                          row{"capped and growing", 40000, 32769, {32768, 32769}}}) {
        std::vector<std::size_t> capacities;
        auto const result = collect_output<char>(r.source, {}, [&](char *, std::size_t capacity) {
            capacities.push_back(capacity);
            return r.result;
        });
        EXPECT_EQ(capacities, r.capacities) << r.name;
        EXPECT_EQ(result.size(), r.result) << r.name;
    }
}

TEST(OutputBuffer, RefusesAResultThatGrows) {
    std::size_t length = 2000;
    EXPECT_THROW(collect_output<char>(10, {}, [&](char *, std::size_t) { return length++; }),
                 CvtConversionFailure);
}

TEST(Utf8Threshold, DoesNotChangeResults) {
    ustring const text = u"a\xE9\xD800\xDC00\xD800z\xDC00\xD800";
    std::string const bytes = "a\xC3\xA9\xC0\xAF\xED\xA0\x80\xF0\x90\x80z\xE2\x82";
    for (std::size_t const threshold : {1u, 8u, 9u, 1000u}) {
        EXPECT_EQ(utf16_to_utf8(text, threshold), utf16_to_utf8(text)) << threshold;
        EXPECT_EQ(utf8_to_utf16(bytes, threshold), utf8_to_utf16(bytes)) << threshold;
    }
}

} // namespace
} // namespace fl::i18n
