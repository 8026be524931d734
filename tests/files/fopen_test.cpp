#include "tests/support/std_path.hpp"
#include "tests/support/temporary_directory.hpp"

#include <boost/filesystem/path.hpp>
#include <cerrno>
#include <fl/filesystem/exceptions.hpp>
#include <fl/filesystem/file.hpp>
#include <fl/i18n/ustring.hpp>
#include <gtest/gtest.h>

namespace fl::filesystem {

namespace {

using i18n::ustring;

constexpr bool has_drives = std::filesystem::path::preferred_separator == '\\';

/// Closes a stream and tells whether there was one.
bool close(std::FILE * stream) {
    return stream && std::fclose(stream) == 0;
}

ustring const too_long(40000, u'n');

class fopen_test : public testing::Test {
protected:
    fopen_test() {
        directory.write(u"d/file", "kept");
        std::filesystem::current_path(test::std_path(directory.path()));
    }
    ~fopen_test() override { std::filesystem::current_path(previous_); }

    std::string content(char const * name) {
        std::ifstream stream(test::std_path(directory.path()) / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    test::temporary_directory directory;
    ustring const base = directory.path().string() + u"\\d\\";

private:
    std::filesystem::path previous_ = std::filesystem::current_path();
};

TEST_F(fopen_test, refuses_what_it_cannot_open) {
    struct {
        char const * name;
        ustring path;
        std::string mode;
        int error;
    } const rows[] = {
        {"empty", u"", "r", EINVAL},
        {"null_first", ustring(u"\0\\", 2), "r", EINVAL},
        {"null_inside", base + ustring(u"file\0x", 6), "r", EINVAL},
        {"empty_mode", base, "", EINVAL},
        {"high_mode", base + u"file", "w\x80", EINVAL},
        {"null_in_mode", base + u"file", std::string("w\0", 2), EINVAL},
        {"backslash", base, "r", EISDIR},
        {"directory", base + u".", "r", has_drives ? EACCES : EISDIR},
        {"directory_to_write", base + u".", "w", has_drives ? EACCES : EISDIR},
        {"backslash_and_high_mode", base, "\xFF", EISDIR},
        {"missing", base + u"none", "r", ENOENT},
        {"missing_directory", base + u"none\\none", "w", ENOENT},
        {"too_long", base + too_long, "r", ENAMETOOLONG},
        {"too_long_relative", too_long, "r", ENAMETOOLONG},
    };
    for (auto const & row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_FALSE(close(fopen(upath(row.path), row.mode)));
        EXPECT_EQ(errno, row.error);
        EXPECT_FALSE(close(fopen(row.path, row.mode)));
        EXPECT_EQ(errno, row.error);
        EXPECT_FALSE(close(fopen(row.path, row.mode, codecvt_ustring_to_filesystem(false))));
        EXPECT_EQ(errno, row.error);
    }
    EXPECT_EQ(content("d/file"), "kept");
    EXPECT_THROW(fopen(u"\\\\.\\pipe", "r"), InvalidArgument);
}

TEST_F(fopen_test, takes_every_form_of_a_name) {
    ustring const leaf = test::std_path(directory.path()).filename().u16string();
    for (ustring const & name : {base + u"file", ustring(u"d\\file"), ustring(u"d/./file"),
                                 ustring(u"d/../d\\\\file"), u"../" + leaf + u"/d/file"}) {
        SCOPED_TRACE(i18n::ustring_to_utf8(name));
        EXPECT_TRUE(close(fopen(upath(name), "r")));
        EXPECT_TRUE(close(fopen(name, "rb")));
        EXPECT_TRUE(close(fopen(name.c_str(), "r+")));
    }
}

TEST_F(fopen_test, finds_nothing_without_a_current_directory) {
    directory.make_directory(u"gone");
    std::filesystem::current_path("gone");
    std::error_code failed;
    if (!std::filesystem::remove(test::std_path(directory.path()) / "gone", failed)) {
        GTEST_SKIP() << "the current directory cannot be removed here";
    }
    EXPECT_FALSE(close(fopen(u"file", "w")));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_FALSE(close(fopen(too_long, "w")));
    EXPECT_EQ(errno, ENAMETOOLONG);
}

TEST_F(fopen_test, freopen_keeps_the_stream_unless_the_system_refuses) {
    static std::FILE * const stream = fopen(u"a", "wb");
    ASSERT_TRUE(stream);
    EXPECT_FALSE(freopen(base, "wb", stream));
    EXPECT_EQ(errno, EISDIR);
    EXPECT_FALSE(freopen(upath(), "wb", stream));
    EXPECT_EQ(errno, EINVAL);
    EXPECT_FALSE(freopen(u"b", "wb", nullptr));
    EXPECT_EQ(errno, EINVAL);
    EXPECT_GE(std::fputs("a", stream), 0);
    ASSERT_EQ(freopen(u"b\u00E9\U0001F600", "wb", stream), stream);
    EXPECT_GE(std::fputs("b", stream), 0);
    EXPECT_FALSE(freopen(u"none\\none", "rb", stream));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(content("a"), "a");
    EXPECT_TRUE(close(fopen(u"b\u00E9\U0001F600", "rb")));
    EXPECT_FALSE(std::filesystem::exists("b"));
}

/// Answers every unit with '_', or throws.
template <class To, class From, class Exception>
class test_converter : public i18n::converter<To, From> {
public:
    bool fails = false;
    std::size_t excess = 0;

protected:
    std::size_t do_get_destination_size(From const *, std::size_t length) const override { return length; }
    std::size_t do_convert(To * destination, std::size_t size, From const *, std::size_t) const override {
        if (fails) {
            throw Exception();
        }
        std::fill_n(destination, size, To('_'));
        return size + excess;
    }
    std::basic_string<To> do_convert(From const *, std::size_t) override { return {}; }
};

template <class Thrown, class Expected>
void expect_translation(std::size_t excess) {
    test_converter<wchar_t, char16_t, Thrown> to_native;
    test_converter<char16_t, wchar_t, Thrown> from_native;
    to_native.excess = from_native.excess = excess;
    to_native.fails = from_native.fails = excess == 0;
    boost::posix_time::ptime const time(boost::gregorian::date(2024, 1, 1));
    EXPECT_THROW(fopen(u"b", "w", to_native), Expected);
    EXPECT_THROW(freopen(u"b", "w", nullptr, to_native), Expected);
    EXPECT_THROW(last_write_time(u"b", time, to_native), Expected);
    EXPECT_THROW(to_generic_ustring("b", from_native), Expected);
}

TEST_F(fopen_test, takes_a_converter_for_the_name) {
    test_converter<wchar_t, char16_t, i18n::CvtInvalidCharacter> const converter;
    EXPECT_TRUE(close(fopen(u"abc", "w", converter)));
    EXPECT_TRUE(std::filesystem::exists("___"));
    EXPECT_TRUE(close(freopen(u"abcd", "w", fopen(u"other", "w"), converter)));
    EXPECT_TRUE(std::filesystem::exists("____"));
    // The converted path is none that can be dated.
    EXPECT_THROW(last_write_time(directory.path().string(),
                                 boost::posix_time::ptime(boost::gregorian::date(2024, 1, 1)), converter),
                 InvalidArgument);
    test_converter<char16_t, wchar_t, i18n::CvtInvalidCharacter> const from_native;
    EXPECT_EQ(to_generic_ustring("a/b", from_native), u"___");
    expect_translation<i18n::CvtInvalidCharacter, CvtInvalidCharacter>(0);
    expect_translation<i18n::CvtSizeTooLarge, FileNameConversionFailure>(0);
    expect_translation<i18n::CvtSizeTooLarge, FileNameConversionFailure>(1);
}

} // namespace

} // namespace fl::filesystem
