#include "tests/support/std_path.hpp"
#include "tests/support/system_queries.hpp"
#include "tests/support/temporary_directory.hpp"

#include <cerrno>
#include <fl/filesystem/file.hpp>
#include <fl/i18n/environment.hpp>
#include <fl/i18n/ustring.hpp>
#include <gtest/gtest.h>
#include <regex>

namespace fl::filesystem {

namespace {

using i18n::ustring;

TEST(tmpnam, joins_its_parts) {
    std::string const unique = "[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}";
    struct {
        ustring directory, prefix, suffix;
        std::string head, tail;
    } const rows[] = {
        {u"C:\\d", u"p", u"txt", "C:\\\\d\\\\p", "\\.txt"},
        {u"C:\\d\\", u"\u00E9", u".txt", "C:\\\\d\\\\\xC3\xA9", "\\.txt"},
        {u"d/", u"", u"", "d/\\\\", ""},
        {u"C:", u"a.", u".", "C:\\\\a\\.", "\\."},
    };
    for (auto const & row : rows) {
        std::string const name = i18n::ustring_to_utf8(tmpnam(row.directory, row.prefix, row.suffix));
        EXPECT_TRUE(std::regex_match(name, std::regex(row.head + unique + row.tail))) << name;
    }
    EXPECT_NE(tmpnam(u"d", u"", u""), tmpnam(u"d", u"", u""));
    EXPECT_TRUE(tmpnam(u"", u"", u"").starts_with(temp_directory_name()));
}

TEST(tmpfile, creates_a_file_for_bytes) {
    test::temporary_directory const directory;
    ustring name = directory.path().string();
    std::FILE * const stream = tmpfile(name, name, u"\U0001F600", u"bin");
    ASSERT_TRUE(stream);
    std::string const bytes("a\n\r\n\x1A\0z", 7);
    EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), stream), bytes.size());
    std::rewind(stream);
    std::string read(20, '#');
    read.resize(std::fread(read.data(), 1, read.size(), stream));
    EXPECT_EQ(read, bytes);
    EXPECT_EQ(std::fclose(stream), 0);
    auto const path = test::std_path(name);
    EXPECT_EQ(path.parent_path(), test::std_path(directory.path()));
    EXPECT_EQ(std::filesystem::file_size(path), bytes.size());
    bool const is_private = (std::filesystem::status(path).permissions() & std::filesystem::perms(077)) ==
                            std::filesystem::perms::none;
    EXPECT_EQ(is_private, std::filesystem::path::preferred_separator == '/');
}

TEST(tmpfile, empties_the_name_when_it_fails) {
    test::temporary_directory const directory;
    ustring const missing = (directory.path() / u"none").string();
    for (auto const & [place, suffix, error] :
         {std::tuple(missing, ustring(), ENOENT), {directory.path().string(), ustring(u"\\"), EISDIR}}) {
        ustring name = u"before";
        EXPECT_FALSE(tmpfile(name, place, u"", suffix));
        EXPECT_EQ(errno, error);
        EXPECT_EQ(name, u"");
    }
    EXPECT_TRUE(std::filesystem::is_empty(test::std_path(directory.path())));
}

/// Sets all variables that name a directory for temporary files, and restores them.
class temp_directory_test : public testing::Test {
protected:
    void SetUp() override {
        for (char const * name : {"TMPDIR", "TMP", "TEMP", "USERPROFILE"}) {
            saved_.emplace_back(name, i18n::getenv(name));
            i18n::unsetenv(name);
        }
    }
    void TearDown() override {
        i18n::unsetenv("FL_I18N_TEST_DIRECTORY");
        for (auto const & [name, value] : saved_) {
            i18n::setenv(name, value, 1, true);
        }
    }

private:
    std::vector<std::pair<std::string, ustring>> saved_;
};

TEST_F(temp_directory_test, is_the_first_that_serves) {
    test::temporary_directory const directory;
    directory.write(u"file", "");
    ustring const base = directory.path().string();
    EXPECT_TRUE(status(temp_directory_name()).is_directory) << "the system's own";
    for (char const * name : {"USERPROFILE", "TEMP", "TMP", "TMPDIR", "FL_I18N_TEST_DIRECTORY"}) {
        SCOPED_TRACE(name);
        ustring const mine = base + u"/" + i18n::utf8_to_ustring(name) + u"\u00E9\U0001F600";
        std::filesystem::create_directory(test::std_path(mine));
        ustring const before = temp_directory_name({"FL_I18N_TEST_DIRECTORY"});
        for (ustring const & useless : {base + u"\\none", base + u"\\file", ustring(u"\\\\.\\none")}) {
            i18n::setenv(name, useless, 1, false);
            EXPECT_EQ(temp_directory_name({"FL_I18N_TEST_NONE", "FL_I18N_TEST_DIRECTORY"}), before);
        }
        i18n::setenv(name, mine, 1, false);
        EXPECT_EQ(temp_directory_name({"FL_I18N_TEST_NONE", "FL_I18N_TEST_DIRECTORY"}), mine);
    }
    EXPECT_EQ(temp_directory_name(), base + u"/TMPDIR\u00E9\U0001F600");
}

/// Needs a directory that this process may not write to, by its environment.
class temp_directory_mixtures : public temp_directory_test {};

TEST_F(temp_directory_mixtures, give_the_first_that_serves) {
    ustring const read_only = i18n::getenv("FL_I18N_TEST_READ_ONLY_DIRECTORY");
    if (read_only.empty()) {
        GTEST_SKIP() << "FL_I18N_TEST_READ_ONLY_DIRECTORY names none";
    }
    ASSERT_TRUE(status(read_only).is_directory);
    ASSERT_TRUE(test::become_ordinary_user());
    test::temporary_directory const directory;
    directory.write(u"file", "");
    ustring const base = directory.path().string() + u"\\";
    ustring const fallback = temp_directory_name();

    char const * const variables[] = {"FL_I18N_TEST_DIRECTORY", "TMPDIR", "TEMP", "USERPROFILE"};
    enum state { unset, empty, missing, file, unwritable, serves, state_count };
    for (int mixture = 0; mixture < state_count * state_count * state_count * state_count; ++mixture) {
        ustring expected = fallback;
        int states = mixture;
        for (char16_t i = 4; i-- > 0; states /= state_count) {
            char const * const name = variables[i];
            ustring const own = base + char16_t(u'0' + i);
            switch (states % state_count) {
            case unset:
                i18n::unsetenv(name);
                break;
            case empty:
                test::set_empty_variable(name);
                break;
            case missing:
                i18n::setenv(name, base + u"none", 1, false);
                break;
            case file:
                i18n::setenv(name, base + u"file", 1, false);
                break;
            case unwritable:
                i18n::setenv(name, read_only, 1, false);
                break;
            case serves:
                std::filesystem::create_directory(test::std_path(own));
                std::filesystem::permissions(test::std_path(own), std::filesystem::perms::all);
                i18n::setenv(name, own, 1, false);
                expected = own;
            }
        }
        EXPECT_EQ(temp_directory_name({"FL_I18N_TEST_DIRECTORY"}), expected) << mixture;
    }
}

} // namespace

} // namespace fl::filesystem
