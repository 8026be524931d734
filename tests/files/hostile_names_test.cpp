#include "tests/support/harmless_names.hpp"

#include <gtest/gtest.h>
#include <random>

namespace fl {

namespace {

using i18n::ustring;

std::vector<ustring> const pieces{
    u"..",     u".",      u"...",     u" ",        u"\\",     u"/",       u":",      ustring(1, u'\0'),
    u"C:",     u"C:\\",   u"\\\\?\\", u"\\\\s\\x", u"\\??\\", u"::$DATA", u"CON",    u"NUL.txt",
    u"aux",    u"COM1",   u"con.",    u"*",        u"?",      u"<",       u"|",      u"\"",
    u"%S",     u"_",      u"@",       u"~1",       u"ja_JP",  u"en",      u"\u00E9", u"\u2215",
    u"\uFF0F", u"\uFF0E", u"\xD83D",  u"\x7F",     u"\x01"};
std::vector<ustring> const patterns{
    u"%S",       u"_%S",      u"fl\\%S\\i18n.xml", u".%S/x",    u"%S./x", u"%S \\x",
    u". %S\\..", u"a/..%S/x", u"a\\%S\\..\\b",     u"a.%S.xml", u"%S%S",  u"a/%S/../../x"};

/// Names of pieces of what is harmful anywhere, each of them the same in every run.
TEST(hostile_names, never_lead_out_of_the_resource_directories) {
    std::mt19937 random(20260301);
    auto const any_of = [&](auto const & table) -> auto const & {
        return table[random() % std::size(table)];
    };
    int used = 0;
    constexpr int count = 50'000;
    for (int i = 0; i < count; ++i) {
        ustring name;
        for (auto length = random() % 5; length > 0; --length) {
            name += any_of(pieces);
        }
        ustring const & pattern = any_of(patterns);
        test::directory const & base = any_of(test::directories);
        char const * const fault = test::fault_of(base, pattern, u"%S", name);
        ASSERT_EQ(fault, nullptr) << fault << ": " << testing::PrintToString(name) << " in "
                                  << testing::PrintToString(pattern) << " below "
                                  << testing::PrintToString(base.path);
        used += i18n::resource_search::localise(pattern, u"%S", name).has_value();
    }
    EXPECT_GT(used, count / 5);
    EXPECT_LT(used, count);
}

} // namespace

} // namespace fl
