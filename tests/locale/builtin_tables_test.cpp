#include "foundation/ascii.hpp"
#include "locale/builtin_tables.hpp"
#include "locale/lc_tables.hpp"
#include "locale/qz_locale_ctx.hpp"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace fl::i18n::lcmgmt {
namespace {

TEST(BuiltinTables, HoldLocalesThatTheTablesResolve) {
    lc_tables const tables;
    EXPECT_GE(builtin_locales().size(), 150u);
    for (builtin_locale const & row : builtin_locales()) {
        SCOPED_TRACE(row.name);
        auto const data = tables.find_locale(row.name);
        ASSERT_TRUE(data);
        EXPECT_EQ(data->xpg_name, row.xpg_name);
        EXPECT_TRUE(tables.resolve_encoding(row.encoding));
    }
    for (builtin_alias const & row : builtin_locale_aliases()) {
        EXPECT_EQ(tables.resolve_locale(row.alias), row.name);
        EXPECT_TRUE(tables.find_locale(row.name)) << row.name;
    }
}

TEST(BuiltinTables, HoldEncodingsThatTheConversionLibraryOpens) {
    lc_tables const tables;
    for (builtin_encoding const & row : builtin_encodings()) {
        EXPECT_TRUE(open_icu_converter(std::string(row.name))) << row.name;
        EXPECT_TRUE(row.compat.empty() || open_icu_converter(std::string(row.compat))) << row.compat;
    }
    for (builtin_alias const & row : builtin_encoding_aliases()) {
        EXPECT_TRUE(open_icu_converter(std::string(row.alias))) << row.alias;
        EXPECT_EQ(tables.resolve_encoding(ascii::to_upper(row.alias))->name, row.name);
    }
}

TEST(BuiltinTables, HaveNoNameTwice) {
    std::set<std::string> names;
    for (builtin_encoding const & row : builtin_encodings()) {
        EXPECT_TRUE(names.insert(ascii::to_lower(row.name)).second) << row.name;
    }
    for (builtin_alias const & row : builtin_encoding_aliases()) {
        EXPECT_TRUE(names.insert(ascii::to_lower(row.alias)).second) << row.alias;
    }
}

template <class Row, class Equal>
void expect_to_find(std::span<Row const> rows, std::string_view Row::*key,
                    Row const * (*find)(std::string_view), Equal equal) {
    for (Row const & row : rows) {
        std::string const name(row.*key);
        for (std::string const & spelling : {name, ascii::to_upper(row.*key), ascii::to_lower(row.*key),
                                             name + 'x', '-' + name, name.substr(1)}) {
            auto const expected = std::find_if(rows.begin(), rows.end(), [&](Row const & candidate) {
                return equal(candidate.*key, spelling);
            });
            EXPECT_EQ(find(spelling), expected == rows.end() ? nullptr : &*expected) << spelling;
        }
    }
}

TEST(BuiltinTables, AreFoundAsByALinearSearch) {
    std::equal_to<std::string_view> const same;
    expect_to_find(builtin_locales(), &builtin_locale::name, find_builtin_locale, same);
    expect_to_find(builtin_locale_aliases(), &builtin_alias::alias, find_builtin_locale_alias, same);
    expect_to_find(builtin_encodings(), &builtin_encoding::name, find_builtin_encoding,
                   ascii::equal_ignoring_case);
    expect_to_find(builtin_encoding_aliases(), &builtin_alias::alias, find_builtin_encoding_alias,
                   ascii::equal_ignoring_case);
}

TEST(EncodingNames, NeverLeaveTheConversionLibrarysData) {
    for (char const * const name : {"../UTF-8", "..\\x", "a/b", "C:x", "UTF-8\n", "", "\xC3\xA9", ".."}) {
        EXPECT_FALSE(open_icu_converter(name)) << name;
    }
    EXPECT_FALSE(open_icu_converter(std::string("UTF-8\0x", 7)));
    EXPECT_TRUE(open_icu_converter("ISO_8859-1:1987,swaplfnl"));
    EXPECT_FALSE(stays_in_icu_data("ut:f,8")); // though "ut:f8" is another spelling of a name
    EXPECT_TRUE(open_icu_converter("ISO_8859-1:1987"));
    EXPECT_TRUE(open_icu_converter("utf 8"));
}

} // namespace
} // namespace fl::i18n::lcmgmt
