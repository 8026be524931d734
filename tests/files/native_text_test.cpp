#include "platform/posix/native_text.hpp"
#include "tests/support/temporary_directory.hpp"

#include <gtest/gtest.h>

namespace fl::platform {

namespace {

TEST(native_text, round_trips_every_code_point_and_lone_surrogate) {
    for (char32_t c = 1; c <= 0x10FFFF; ++c) {
        std::u16string text;
        if (c < 0x10000) {
            text = static_cast<char16_t>(c);
        } else {
            text = {static_cast<char16_t>(0xD800 + ((c - 0x10000) / 0x400)),
                    static_cast<char16_t>(0xDC00 + ((c - 0x10000) % 0x400))};
        }
        ASSERT_EQ(from_native_bytes(to_native_bytes(text)), text) << std::hex << static_cast<unsigned>(c);
    }
}

TEST(native_text, is_utf8) {
    EXPECT_EQ(to_native_bytes(u"a\u00E9\u20AC\U0001F600"), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(to_native_bytes(u"\xD83D"), "\xED\xA0\xBD");
    EXPECT_EQ(to_native_bytes(u"\xDE00\xD83D"), "\xED\xB8\x80\xED\xA0\xBD");
}

TEST(native_text, replaces_invalid_bytes) {
    struct {
        char const * bytes;
        char16_t const * text;
    } const rows[] = {
        {"\x80", u"\uFFFD"},
        {"a\xFFz", u"a\uFFFDz"},
        {"\xC3", u"\uFFFD"},
        {"\xC3(", u"\uFFFD("},
        {"\xC0\xAF", u"\uFFFD\uFFFD"},
        {"\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"},
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF8\x88\x80\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
    };
    for (auto const & row : rows) {
        EXPECT_EQ(from_native_bytes(row.bytes), row.text);
    }
}

TEST(current_directory, is_reached_when_its_name_is_no_text) {
    std::filesystem::path const previous = std::filesystem::current_path();
    test::temporary_directory const directory;
    for (char const * name : {"caf\xE9", "back\\slash"}) {
        SCOPED_TRACE(name);
        std::filesystem::path const odd = test::std_path(directory.path()) / name;
        std::filesystem::create_directory(odd);
        std::ofstream(odd / "file").put('x');
        std::filesystem::current_path(odd);
        EXPECT_TRUE(filesystem::exists(u"file"));
        EXPECT_FALSE(filesystem::exists(u"none"));
    }
    std::filesystem::current_path(previous);
}

} // namespace

} // namespace fl::platform
