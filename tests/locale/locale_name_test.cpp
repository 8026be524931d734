#include "locale/locale_name.hpp"

#include "locale/code_pages.hpp"
#include "locale/qz_locale_ctx.hpp"

#include <gtest/gtest.h>
#include <string>

namespace fl::i18n::lcmgmt {
namespace {

TEST(LocaleName, HoldsOnlyCharactersThatAreSafeInAFileName) {
    for (char const * const name : {"", "ja_JP", "ja_JP.UTF-8@x=y;z", "_JP", "a.b"}) {
        EXPECT_TRUE(is_valid_locale_name(name)) << name;
    }
    EXPECT_TRUE(is_valid_locale_name(std::string(157, 'a')));
    EXPECT_FALSE(is_valid_locale_name(std::string(158, 'a')));
    EXPECT_FALSE(is_valid_locale_name(std::string("a\0b", 3)));
    for (char const * const name :
         {"..", "ja..JP", "../x", "a/b", "a\\b", "C:", "a b", "%S", "j\xC3\xA4", "a\n"}) {
        EXPECT_FALSE(is_valid_locale_name(name)) << name;
    }
}

TEST(LocaleName, SplitsIntoParts) {
    struct row {
        char const *name, *language, *script, *territory, *codeset, *modifier, *plain;
    };
    for (row const & r : {
             row{"ja_JP", "ja", "", "JP", "", "", "ja_JP"},
             row{"ja", "ja", "", "", "", "", "ja"},
             row{"", "", "", "", "", "", ""},
             row{"sr_Latn_BA", "sr", "Latn", "BA", "", "", "sr_Latn_BA"},
             row{"es_419", "es", "", "419", "", "", "es_419"},
             row{"zh-Hans-CN", "zh", "Hans", "CN", "", "", "zh-Hans-CN"},
             row{"en_US_POSIX", "en", "", "US", "", "", "en_US_POSIX"},
             row{"_JP", "", "", "JP", "", "", "_JP"},
             row{"sr_RS.UTF-8@latin", "sr", "", "RS", "UTF-8", "latin", "sr_RS@latin"},
             row{"de@a.b", "de", "", "", "", "a.b", "de@a.b"},
         }) {
        SCOPED_TRACE(r.name);
        locale_name_parts const parts = split_locale_name(r.name);
        EXPECT_EQ(parts.language, r.language);
        EXPECT_EQ(parts.script, r.script);
        EXPECT_EQ(parts.territory, r.territory);
        EXPECT_EQ(parts.codeset, r.codeset);
        EXPECT_EQ(parts.modifier, r.modifier);
        EXPECT_EQ(without_codeset(r.name), r.plain);
    }
}

TEST(LocaleName, IsReadFromEitherSystemsSpelling) {
    struct row {
        char const *system_name, *name, *codeset;
    };
    for (row const & r : {
             row{"ja-JP", "ja_JP", ""},
             row{"zh-Hans-CN", "zh_Hans_CN", ""},
             row{"de-DE_phoneb", "de_DE", ""},
             row{"ja_JP.eucJP", "ja_JP", "eucJP"},
             row{"sr_RS.UTF-8@latin", "sr_Latn_RS", "UTF-8"},
             row{"de_DE@euro", "de_DE", ""},
             row{"EN_us", "en_US", ""},
             row{"german", "german", ""},
             row{"C", "en_US_POSIX", ""},
             row{"C.UTF-8", "en_US_POSIX", "UTF-8"},
             row{"POSIX", "en_US_POSIX", ""},
         }) {
        SCOPED_TRACE(r.system_name);
        auto const read = read_system_locale_name(r.system_name);
        ASSERT_TRUE(read);
        EXPECT_EQ(read->name, r.name);
        EXPECT_EQ(read->codeset, r.codeset);
    }
    for (char const * const name : {"", "../../etc", "/usr/locale/x", "1_2", "x", "ja:JP"}) {
        EXPECT_FALSE(read_system_locale_name(name)) << name;
    }
}

TEST(CodePage, HasAnEncodingName) {
    EXPECT_EQ(encoding_of_code_page(0), "");
    EXPECT_EQ(encoding_of_code_page(65001), "UTF-8");
    EXPECT_EQ(encoding_of_code_page(1252), "windows-1252");
    EXPECT_EQ(encoding_of_code_page(932), "windows-932");
    EXPECT_EQ(encoding_of_code_page(437), "cp437");
    EXPECT_EQ(encoding_of_code_page(28605), "ISO-8859-15");
    for (unsigned const page :
         {437u,   720u,   737u,   850u,   874u,   932u,   936u,   949u,   950u,   1200u,  1250u,
          1258u,  10000u, 10006u, 10007u, 10029u, 10081u, 20127u, 20866u, 20932u, 28591u, 38598u,
          50220u, 50221u, 50222u, 50225u, 51949u, 52936u, 54936u, 65000u, 65001u}) {
        EXPECT_TRUE(open_icu_converter(encoding_of_code_page(page))) << page;
    }
}

} // namespace
} // namespace fl::i18n::lcmgmt
