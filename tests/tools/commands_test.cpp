// What the commands "locale" and "doctor" find, and files written whole or not at all.

#include "tests/support/temporary_directory.hpp"
#include "tools/fl_i18n/byte_streams.hpp"
#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/doctor.hpp"
#include "tools/fl_i18n/files.hpp"
#include "tools/fl_i18n/locale_facts.hpp"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace fl::tool {
namespace {

TEST(LocaleCommand, TellsValuesAndWhereTheyAreFrom) {
    struct row {
        std::string name;
        std::vector<fact> facts;
    };
    std::string const encoding = "encoding";
    std::vector<row> const rows = {
        {"ja_JP.eucJP@x",
         {{"messages", "ja_JP.eucJP@x", "the name given"},
          {"language", "ja", ""},
          {"territory", "JP", ""},
          {encoding, "EUC-JP", "encoding part of ja_JP.eucJP@x"},
          {"fallback chain", "ja_JP.eucJP@x > ja > en_US_POSIX",
           "the messages locale, its language, the default"},
          {"paper size", "A4", "ICU's locale data"},
          {"Java encoding", "EUC_JP", ""}}},
        {"en_US", {{"paper size", "Letter", "ICU's locale data"}}},
        // An alias that the shipped database has, and a locale that only the built-in tables have.
        {"be_Latn", {{encoding, "UTF-8", "locale database"}, {"XPG name", "be_BY.UTF-8@latin", ""}}},
        {"de_DE", {{encoding, "UTF-8", "built-in tables, UTF-8 for a locale that they lack"}}},
        {"de_DE.nonsense", {{encoding, "UTF-8", "built-in tables, UTF-8 for a locale that they lack"}}},
    };
    for (row const & each : rows) {
        SCOPED_TRACE(each.name);
        auto const found = describe_locale(*i18n::QzLocale::createLocale(each.name));
        for (fact const & expected : each.facts) {
            auto const same_label = [&](fact const & other) { return other.label == expected.label; };
            auto const position = std::find_if(found.begin(), found.end(), same_label);
            ASSERT_NE(position, found.end()) << expected.label;
            EXPECT_EQ(position->value, expected.value) << expected.label;
            EXPECT_EQ(position->origin, expected.origin) << expected.label;
        }
    }
    EXPECT_EQ(check_locale_name("ja_JP"), "");
    EXPECT_NE(check_locale_name("../ja"), "");
    EXPECT_EQ(to_text({{"a", "1", ""}, {"long", "", "why"}, {"long", "2", ""}}),
              "a     1\nlong  -  (why)\n      2\n");
}

/// Expects problems that hold these words, in this order.
void expect_problems(diagnosis const & result, std::vector<std::string> const & words) {
    ASSERT_EQ(result.problems.size(), words.size()) << testing::PrintToString(result.problems);
    for (std::size_t i = 0; i < words.size(); ++i) {
        EXPECT_NE(result.problems[i].find(words[i]), std::string::npos) << result.problems[i];
    }
}

TEST(Doctor, FindsWhatIsWrongWithVariables) {
    struct row {
        variables set;
        std::vector<std::string> problems;
    };
    std::vector<row> const rows = {
        {{}, {}},
        {{{"QZLOCALE_L10N_CONTROL", "Off"}, {"QZLOCALE_TERMINAL_ENCODING", "sjis"}}, {}},
        {{{"QZLOCALE_L10N_CONTROL", ""}, {"QZLOCALE_TERMINAL_ENCODING", ""}, {"QZLOCALE_LCDATA_PATH", ""}},
         {}},
        {{{"QZLOCALE_L10N_CONTROL", "on "}}, {"QZLOCALE_L10N_CONTROL is \"on \""}},
        {{{"QZLOCALE_TERMINAL_ENCODING", "nonsense"}, {"QZLOCALE_LCDATA_PATH", "/no/where"}},
         {"QZLOCALE_TERMINAL_ENCODING is \"nonsense\"", "QZLOCALE_LCDATA_PATH is \"/no/where\""}},
    };
    for (row const & each : rows) {
        SCOPED_TRACE(testing::PrintToString(each.set));
        diagnosis result;
        examine_variables(each.set, result);
        expect_problems(result, each.problems);
        EXPECT_EQ(result.facts.size(), 9u);
    }
}

TEST(Doctor, FindsWhatIsWrongWithCatalogs) {
    std::string const good = "<rsccat><message/></rsccat>";
    test::temporary_directory root;
    diagnosis nothing;
    examine_root(root.name(), nothing);
    expect_problems(nothing, {"no directory " + root.name() + "/resources"});
    root.make_directory(u"resources");
    nothing.problems.clear();
    examine_root(root.name(), nothing);
    expect_problems(nothing, {"no catalogs"});

    root.write(u"resources/app/en/ui.xml", good);
    root.write(u"resources/app/de/ui.xml", good);
    root.write(u"resources/app/de_AT/help.xml", good);
    root.write(u"resources/app/en/help.xml", good);
    root.write(u"resources/app/ja/ui.xml", "<rsccat>");
    diagnosis found;
    examine_root(root.name(), found);
    expect_problems(found, {"resources/app/ja/ui.xml:1:9: ", "app:help is missing in de below"});
    EXPECT_EQ(found.facts.back(), (fact{"catalog app:ui", "de en", ""}));
}

TEST(Doctor, FindsNothingWrongWithTheVersionsOfThisBuild) {
    diagnosis result;
    examine_versions(result);
    expect_problems(result, {});
    for (fact const & each : result.facts) {
        EXPECT_NE(each.value.find_first_of("0123456789"), std::string::npos) << each.label;
    }
}

TEST(ByteSink, PutsAFileInPlaceOnlyWhenItIsFinished) {
    test::temporary_directory root;
    std::string const name = root.name() + "/\xC3\xA9.txt";
    write_file(name, "old");
    {
        byte_sink sink(name);
        sink.write("new");
    }
    EXPECT_EQ(read_file(name), "old");
    EXPECT_EQ(files_below(root.name(), "").size(), 1u);
    byte_sink sink(name);
    sink.write("new\n\r\n\x1A");
    sink.finish();
    byte_source source(name);
    EXPECT_EQ(source.size(), 7u);
    EXPECT_EQ(source.read(5), "new\n\r");
    EXPECT_EQ(source.read(5), "\n\x1A");
    EXPECT_EQ(files_below(root.name(), "").size(), 1u);
    EXPECT_THROW(byte_sink(root.name() + "/no/file"), command_failure);
    EXPECT_THROW(byte_sink{root.name()}, command_failure) << "before anything is written";
    EXPECT_THROW(byte_source(root.name() + "/no"), command_failure);
}

TEST(ByteSink, LeavesLinksAndPermissionsAsTheyAre) {
    test::temporary_directory root;
    std::filesystem::path const file = to_path(root.name()) / "file";
    std::filesystem::path const link = to_path(root.name()) / "link";
    write_file(to_name(file), "old");
    std::filesystem::permissions(file,
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    auto const permissions = std::filesystem::status(file).permissions();
    write_file(to_name(file), "new");
    EXPECT_EQ(std::filesystem::status(file).permissions(), permissions);

    std::error_code unsupported;
    for (char const * const target : {"file", "none"}) {
        SCOPED_TRACE(target);
        std::filesystem::remove(link);
        std::filesystem::create_symlink(target, link, unsupported);
        if (unsupported) {
            GTEST_SKIP() << "no links here";
        }
        write_file(to_name(link), "through");
        EXPECT_TRUE(std::filesystem::is_symlink(link));
        EXPECT_EQ(read_file(to_name(to_path(root.name()) / target)), "through");
    }
}

} // namespace
} // namespace fl::tool
