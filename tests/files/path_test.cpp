#include "tests/support/std_path.hpp"
#include "tests/support/temporary_directory.hpp"

#include <fl/filesystem/exceptions.hpp>
#include <fl/filesystem/path.hpp>
#include <gtest/gtest.h>

namespace fl::filesystem {

namespace {

TEST(upath, joins_with_one_separator) {
    struct {
        upath left, right, joined;
    } const rows[] = {
        {L"a", L"b", L"a\\b"},         {L"a\\", L"b", L"a\\b"},   {L"a/", L"\\b", L"a\\b"},
        {L"a", L"\\b", L"a\\b"},       {L"", L"b", L"b"},         {L"a", L"", L"a"},
        {L"C:", L"b", L"C:b"},         {L"C:\\", L"b", L"C:\\b"}, {L"a", L"C:\\b", L"a\\C:\\b"},
        {L"a\\", L"\\\\b", L"a\\\\b"}, {L"/a:", L"b", L"/a:\\b"}, {L"\\\\?\\C:", L"b", L"\\\\?\\C:\\b"},
    };
    for (auto const & row : rows) {
        EXPECT_EQ((row.left / row.right).native(), row.joined.native());
    }
    upath path = L"\\a\\";
    upath const & itself = path;
    path /= itself;
    EXPECT_EQ(path.native(), L"\\a\\a\\");
}

TEST(upath, keeps_every_utf16_unit) {
    i18n::ustring const text{u'a', u'\xD83D', u'\xDE00', u'\xD800', u'\xFFFD'};
    EXPECT_EQ(upath(text).string(), text);
    EXPECT_EQ(upath(text).native().size(), text.size());
}

TEST(native_form, turns_slashes) {
    EXPECT_EQ(make_native_form(u"a/b\\c//d", false), L"a\\b\\c\\\\d");
    EXPECT_EQ(make_native_form(u"//?/C:/a/", true), L"\\\\?\\C:\\a\\");
    EXPECT_EQ(make_native_form(u"", true), L"");
}

TEST(native_form, is_made_absolute_with_the_current_directory) {
    upath const current = std::filesystem::current_path().u16string();
    EXPECT_EQ(make_native_form(u"a/b", true), make_native_form(current / u"a/b", false));
    EXPECT_FALSE(is_absolute(u"a/b"));
    EXPECT_TRUE(is_absolute(make_native_form(u"a/b", true)));
    EXPECT_TRUE(is_absolute(make_native_form(u"/a", true)));
    EXPECT_TRUE(is_absolute(u"C:/a"));
    EXPECT_FALSE(is_absolute(u"C:a"));
    EXPECT_FALSE(is_absolute(u"\\\\server"));
    EXPECT_EQ(make_native_access_form(u"C:\\a"), L"\\\\?\\C:\\a");
    EXPECT_THROW(make_native_access_form(u"C:/a"), InvalidArgument);
}

TEST(status, knows_files_and_directories) {
    test::temporary_directory const directory;
    directory.write(u"d\u00E9\u65E5/file.txt", "");
    upath const sub = directory.path() / u"d\u00E9\u65E5";
    EXPECT_TRUE(status(sub).is_directory);
    EXPECT_TRUE(exists(sub / u"file.txt"));
    EXPECT_FALSE(status(sub / u"file.txt").is_directory);
    EXPECT_TRUE(exists(sub / u".." / u"d\u00E9\u65E5/file.txt"));
}

TEST(status, counts_what_cannot_be_there_as_missing) {
    test::temporary_directory const directory;
    directory.write(u"file.txt", "");
    upath const base = directory.path();
    for (upath const & path : {base / u"none", base / u"none/none", base / u"file.txt/below", upath(),
                               base / i18n::ustring(u"file.txt\0x", 10), base / i18n::ustring(40000, u'n')}) {
        EXPECT_FALSE(exists(path));
        EXPECT_FALSE(status(path).is_directory);
    }
}

TEST(status, finds_files_behind_long_paths) {
    test::temporary_directory const directory;
    upath path = directory.path();
    for (int i = 0; i < 4; ++i) {
        path /= i18n::ustring(100, u'd');
    }
    std::filesystem::path standard = test::long_std_path(path);
    std::filesystem::create_directories(standard);
    EXPECT_TRUE(status(path).is_directory);
    EXPECT_FALSE(exists(path / u"none"));
    // The standard library does not remove a tree of long paths at once on every system.
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(std::filesystem::remove(standard));
        standard = standard.parent_path();
    }
}

TEST(status, throws_when_the_system_refuses_to_look) {
    test::temporary_directory const directory;
    if (!test::make_link_loop(directory.path() / u"loop")) {
        GTEST_SKIP() << "symbolic links cannot be made here";
    }
    EXPECT_THROW(exists(directory.path() / u"loop/file"), AccessDenied);
}

TEST(install_path, is_above_this_library) {
    static int in_program = 0;
    upath const path = get_install_path();
    EXPECT_TRUE(is_absolute(path));
    EXPECT_TRUE(status(path).is_directory);
    EXPECT_TRUE(exists(path / u"bin")) << "the build tree has the installed tree's shape";
    EXPECT_EQ(get_install_path(&in_program), path);
    EXPECT_TRUE(get_install_path(nullptr).empty());
}

} // namespace

} // namespace fl::filesystem
