// How much of a tree of catalogs is translated.

#include "tests/support/temporary_directory.hpp"
#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/coverage.hpp"

#include <gtest/gtest.h>
#include <string>

namespace fl::tool {
namespace {

std::string document(std::string const & entries) {
    return "<rsccat><message>" + entries + "</message></rsccat>";
}

TEST(Coverage, TellsMissingFromUntranslatedMessages) {
    test::temporary_directory root;
    root.write(
        u"resources/app/en_US_POSIX/ui.xml",
        document(
            "<entry key='a'>One</entry><entry key='b'>{0}</entry><entry key='c' translate='no'>OK</entry>"
            "<entry key='d'>Two</entry><entry key='d'>double</entry>"));
    root.write(u"resources/app/de/ui.xml", document("<entry key='a'>One</entry><entry key='b'>{0}</entry>"
                                                    "<entry key='c'>OK</entry><entry key='extra'>x</entry>"));
    root.write(u"resources/app/en_GB/ui.xml",
               document("<entry key='a'>One</entry><entry key='b'>{0}</entry>"
                        "<entry key='c'>OK</entry><entry key='d'>Two</entry>"));
    root.write(u"resources/app/ja/ui.xml", document("<entry key='a'>") + "broken");
    root.write(u"resources/app/en_US_POSIX/more/help.xml",
               document("<entry key='h'>{0,plural,other{help}}</entry>"));
    root.write(u"resources/app/de_AT/more/help.xml",
               document("<entry key='h'>{0,plural,other{help}}</entry>"));
    root.write(u"resources/app/de/lonely.xml", document(""));
    root.write(u"resources/app/catalog_map.xml", "<MessageCatalogMap/>");
    std::string const directory = root.name();
    coverage const measured = measure_coverage(directory, "");
    EXPECT_EQ(to_text(measured, true), "language  app:more:help    app:ui     total  same as base  missing\n"
                                       "de               0/1 0%   2/4 50%   2/5 40%             1        2\n"
                                       "de_AT            0/1 0%   2/4 50%   2/5 40%             2        1\n"
                                       "en_GB          1/1 100%  4/4 100%  5/5 100%             0        0\n"
                                       "ja               0/1 0%    0/4 0%    0/5 0%             0        5\n"
                                       "total           1/4 25%  8/16 50%  9/20 45%             3        8\n"
                                       "missing in de: app:more:help:h\n"
                                       "missing in de: app:ui:d\n"
                                       "missing in de_AT: app:ui:d\n"
                                       "missing in ja: app:more:help:h\n"
                                       "missing in ja: app:ui:a\n"
                                       "missing in ja: app:ui:b\n"
                                       "missing in ja: app:ui:c\n"
                                       "missing in ja: app:ui:d\n");
    ASSERT_EQ(measured.problems.size(), 2u);
    EXPECT_EQ(measured.problems[0], "app:lonely: there is no file for the base language");
    EXPECT_TRUE(measured.problems[1].starts_with(directory + "/resources/app/ja/ui.xml:1:35: "));

    coverage german = measure_coverage(directory, "de");
    german.languages.erase("en_GB");
    german.languages.erase("ja");
    german.problems = {"a \"\\\x01\xC3\xA9"};
    std::string const lonely = R"({"catalog":"app:lonely","total":0,"translated":0,"same":0,"missing":0,)";
    EXPECT_EQ(
        to_json(german, true),
        R"({"catalogs":["app:lonely","app:ui"],)"
        "\n\"languages\":[\n"
        R"({"language":"en_US_POSIX","total":4,"translated":2,"same":1,"missing":1,"catalogs":[)" +
            lonely +
            R"("missing_keys":[]},)"
            R"({"catalog":"app:ui","total":4,"translated":2,"same":1,"missing":1,"missing_keys":["extra"]}]}],)"
            "\n"
            R"("total":{"total":4,"translated":2,"same":1,"missing":1},)"
            "\n"
            R"("problems":["a \"\\\u0001)"
            "\xC3\xA9\"]}\n");
    EXPECT_THROW(measure_coverage(directory + "/nowhere", ""), command_failure);
}

} // namespace
} // namespace fl::tool
