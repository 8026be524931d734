#include "lookup/resource_search.hpp"

#include "tests/support/temporary_directory.hpp"

#include <gtest/gtest.h>

namespace fl::i18n::resource_search {

namespace {

using filesystem::upath;

TEST(resource_search, tells_every_candidate_in_order) {
    test::temporary_directory const directory;
    directory.write(u"b/x.txt", "");
    directory.write(u"c/x.txt", "");
    std::vector<upath> bases;
    for (char16_t const * name : {u"a", u"b", u"c"}) {
        bases.push_back(directory.path() / name);
    }
    std::vector<ustring> const names{u"ja_JP", u"", u"de"};
    std::vector<ustring> seen;
    match const found =
        find({bases, u"x_%S.txt", u"%S", names}, [&](upath const & path, ustring const & name, bool exists) {
            ustring const text = path.string();
            seen.push_back(text.substr(text.rfind(u'\\') - 1) + u" " + name + (exists ? u"+" : u"-"));
        });
    EXPECT_EQ(seen, (std::vector<ustring>{u"a\\x_ja_JP.txt ja_JP-", u"b\\x_ja_JP.txt ja_JP-",
                                          u"c\\x_ja_JP.txt ja_JP-", u"a\\x.txt -", u"b\\x.txt +"}));
    EXPECT_EQ(found.path.native(), make_native_form(bases[1] / u"x.txt", true));
}

TEST(resource_search, never_tries_a_name_that_leaves_its_place) {
    test::temporary_directory const directory;
    directory.write(u"d/x.txt", "");
    std::vector<upath> const bases{directory.path() / u"d"};
    std::vector<ustring> const names{u"..",  u"../d",           u"..\\d", u"a/../..", u"/", u"C:",
                                     u"x:y", ustring(u"\0", 1), u".",     u" .",      u"  "};
    int candidates = 0;
    match const found = find({bases, u"%S/d/x.txt", u"%S", names},
                             [&](upath const &, ustring const &, bool) { ++candidates; });
    EXPECT_TRUE(found.path.empty());
    EXPECT_EQ(candidates, 0);
}

} // namespace

} // namespace fl::i18n::resource_search
