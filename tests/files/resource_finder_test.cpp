#include "tests/support/std_path.hpp"
#include "tests/support/temporary_directory.hpp"

#include <fl/i18n/resource_finder.hpp>
#include <gtest/gtest.h>

namespace {

using fl::filesystem::make_native_form;
using fl::filesystem::upath;
using fl::i18n::QzLocale;
using fl::i18n::resource_finder;
using fl::i18n::ustring;

class resource_finder_test : public ::testing::Test {
protected:
    fl::test::temporary_directory const first;
    fl::test::temporary_directory const second;
    std::vector<upath> const bases{first.path(), second.path()};
    std::shared_ptr<QzLocale const> const japanese = QzLocale::createLocale("ja_JP");
    std::shared_ptr<QzLocale const> const german = QzLocale::createLocale("de_AT");

    static std::wstring native(upath const & path) { return make_native_form(path, true); }
};

TEST_F(resource_finder_test, prefers_the_more_specific_name_over_the_earlier_directory) {
    first.write(u"help_ja.xml", "");
    second.write(u"help_ja_JP.xml", "");
    second.write(u"help_ja.xml", "");
    resource_finder const finder(bases, *japanese, true);
    EXPECT_EQ(finder.get_locale(), "");
    EXPECT_EQ(finder.find(u"help_%S.xml").native(), native(bases[1] / u"help_ja_JP.xml"));
    EXPECT_EQ(finder.get_locale(), "ja_JP");
    std::filesystem::remove(fl::test::std_path(bases[1] / u"help_ja_JP.xml"));
    EXPECT_EQ(finder.find(u"help_%S.xml").native(), native(bases[0] / u"help_ja.xml"));
    EXPECT_EQ(finder.get_locale(), "ja");
    EXPECT_TRUE(finder.find(u"none_%S.xml").empty());
    EXPECT_EQ(finder.get_locale(), "");
    EXPECT_EQ(finder.get_current_locale(), "ja_JP");
}

TEST_F(resource_finder_test, ends_with_the_chosen_default) {
    first.write(u"help_en_US_POSIX.xml", "");
    first.write(u"help.xml", "");
    first.write(u"msg_.txt", "");
    first.write(u"msgs.txt", "");
    std::string found = "x";
    EXPECT_EQ(resource_finder::find_resource(bases, u"help_%S.xml", found, *japanese, true).native(),
              native(bases[0] / u"help_en_US_POSIX.xml"));
    EXPECT_EQ(found, "en_US_POSIX");
    EXPECT_EQ(resource_finder::find_resource(bases, u"help_%S.xml", found, *japanese, false).native(),
              native(bases[0] / u"help.xml"));
    EXPECT_EQ(found, "");
    EXPECT_EQ(resource_finder::find_resource(bases, u"msg%Ss.txt", *japanese, false).native(),
              native(bases[0] / u"msgs.txt"));
    EXPECT_TRUE(resource_finder::find_resource(bases, u"msg__%Ss.txt", *japanese, false).empty());
}

TEST_F(resource_finder_test, searches_for_another_locale) {
    first.write(u"a/ja/x.txt", "");
    second.write(u"a/de/x.txt", "");
    second.write(u"y.txt", "");
    std::string found;
    resource_finder const finder(bases, *japanese, false, u"{L}");
    EXPECT_EQ(finder.find(u"a/{L}/x.txt", *german, found).native(), native(bases[1] / u"a/de/x.txt"));
    EXPECT_EQ(found, "de");
    EXPECT_EQ(finder.get_locale(), "de");
    EXPECT_EQ(finder.find(u"a/%S/x.txt", *german, u"%S", found).native(), native(bases[1] / u"a/de/x.txt"));
    EXPECT_EQ(finder.find(u"y_{L}.txt", *german, found).native(), native(bases[1] / u"y.txt"))
        << "its default";
    EXPECT_EQ(finder.find(u"a/%S/x.txt", u"%S").native(), native(bases[0] / u"a/ja/x.txt"));
    found = "x";
    EXPECT_TRUE(finder.find(u"none_{L}", *german, found).empty());
    EXPECT_EQ(found, "");
}

TEST_F(resource_finder_test, takes_the_pattern_alone_for_a_full_path) {
    first.write(u"x_ja.txt", "");
    std::string found;
    ustring const pattern = (bases[0] / u"x_%S.txt").string();
    EXPECT_EQ(resource_finder::find_resource(pattern, found, *japanese, true).native(),
              native(bases[0] / u"x_ja.txt"));
    EXPECT_EQ(found, "ja");
    EXPECT_EQ(resource_finder::find_resource(pattern, *japanese, true).native(),
              native(bases[0] / u"x_ja.txt"));
    EXPECT_TRUE(resource_finder::find_resource(u"", *japanese, true).empty());
}

TEST_F(resource_finder_test, tries_a_pattern_without_marker_unchanged) {
    second.write(u"plain.txt", "");
    resource_finder const finder(bases, *japanese, true);
    EXPECT_EQ(finder.find(u"plain.txt").native(), native(bases[1] / u"plain.txt"));
    EXPECT_EQ(finder.find(u"plain.txt", u"").native(), native(bases[1] / u"plain.txt"));
    EXPECT_TRUE(finder.find(u"").empty());
}

TEST_F(resource_finder_test, changes_its_list_through_a_constant) {
    first.write(u"x_ja.txt", "");
    resource_finder const finder({bases[0]}, *japanese, true);
    ASSERT_FALSE(finder.find(u"x_%S.txt").empty());
    ustring slashes = bases[0].string();
    std::replace(slashes.begin(), slashes.end(), u'\\', u'/');
    EXPECT_FALSE(finder.add_base_path(slashes));
    EXPECT_TRUE(finder.add_base_path(bases[1]));
    EXPECT_EQ(finder.get_base_path_list(), bases);
    resource_finder const copy = finder;
    EXPECT_TRUE(finder.remove_base_path(slashes));
    EXPECT_FALSE(finder.remove_base_path(bases[0]));
    EXPECT_EQ(finder.get_locale(), "ja");
    EXPECT_TRUE(finder.find(u"x_%S.txt").empty());
    EXPECT_FALSE(copy.find(u"x_%S.txt").empty());
}

TEST_F(resource_finder_test, goes_on_after_a_directory_that_cannot_be_read) {
    second.write(u"x_ja.txt", "");
    if (!fl::test::make_link_loop(bases[0] / u"loop")) {
        GTEST_SKIP() << "symbolic links cannot be made here";
    }
    EXPECT_FALSE(
        resource_finder::find_resource({bases[0] / u"loop", bases[1]}, u"x_%S.txt", *japanese, true).empty());
}

} // namespace
