#include "locale/lc_rsc_exceptions.hpp"
#include "locale/lcdb_event_handler.hpp"
#include "locale/lcdb_parser.hpp"
#include "tests/support/temporary_directory.hpp"

#include <fl/filesystem/path.hpp>
#include <gtest/gtest.h>
#include <string>

namespace fl::i18n::lcmgmt {
namespace {

/// Tables, log and a place for database files.
struct database {
    test::temporary_directory directory;
    lc_tables tables;
    event_log log;

    void parse(std::string const & text) {
        directory.write(u"lcdata.xml", text);
        parse_lcdata(LcData(tables, log), directory.path() / filesystem::upath(u"lcdata.xml"));
    }

    bool accepts(std::string const & text) {
        try {
            parse(text);
            return true;
        } catch (LcRscInvalidXmlDoc const &) {
            return false;
        }
    }
};

std::string in_lcdata(std::string const & elements) {
    return "<lcdata>" + elements + "</lcdata>";
}

TEST(LocaleDatabase, AcceptsAndRefusesDocuments) {
    struct row {
        char const * name;
        std::string text;
        bool accepted;
    };
    row const rows[] = {
        {"root alone", "<lcdata/>", true},
        {"other root", "<locale name='xx'/>", false},
        {"unknown element", in_lcdata("<region/>"), false},
        {"alias under root", in_lcdata("<alias name='x'/>"), false},
        {"encoding under root", in_lcdata("<encoding name='x'/>"), false},
        {"alias in encoding", in_lcdata("<codeset><encoding name='X'><alias name='y'/></encoding></codeset>"),
         false},
        {"root in root", "<lcdata><lcdata/></lcdata>", false},
        {"locale in locale", in_lcdata("<locale name='xx'><locale name='yy'/></locale>"), false},
        {"locale without name", in_lcdata("<locale encoding='UTF-8'/>"), false},
        {"locale with empty name", in_lcdata("<locale name=''/>"), false},
        {"alias without name", in_lcdata("<locale name='xx'><alias/></locale>"), false},
        {"l10n without disable", in_lcdata("<locale name='xx'><l10n/></locale>"), false},
        {"nameless encoding", in_lcdata("<codeset><encoding><encoding_alias name='x'/></encoding></codeset>"),
         false},
        {"alias without encoding name",
         in_lcdata("<codeset><encoding name='E'><encoding_alias/></encoding></codeset>"), false},
        {"unlisted attributes and text",
         in_lcdata("text<!-- c --><locale name='xx' colour='red'>text</locale>"), true},
        {"repeated attribute", in_lcdata("<locale name='' name='xx'/>"), false},
        {"declaration", "<?xml version='1.0' encoding='Utf-8'?><lcdata/>", true},
        {"declaration without encoding", "<?xml version='1.0'?><lcdata/>", false},
        {"declaration of Latin-1", "<?xml version='1.0' encoding='ISO-8859-1'?><lcdata/>", false},
        {"declaration of a longer name", "<?xml version='1.0' encoding='UTF-80'?><lcdata/>", false},
        {"malformed", "<lcdata>", false},
        {"empty file", "", false},
    };
    for (row const & r : rows) {
        EXPECT_EQ(database().accepts(r.text), r.accepted) << r.name;
    }
}

TEST(LocaleDatabase, AppliesElementsToTheTables) {
    database db;
    db.parse(
        in_lcdata("<locale name='xx_YY' encoding='EUC-JP' xpg_name='xx_YY.eucJP' disable_user_locale='x'>"
                  "<alias name='old'/><region_alias name='YY'/><l10n disable='true'/></locale>"
                  "<locale name='ja_JP' encoding='Shift_JIS'/>"
                  "<codeset><encoding name='X-NEW' jvm_encoding='J' compat='UTF-8'>"
                  "<encoding_alias name='newest'/></encoding></codeset>"));
    EXPECT_EQ(db.tables.find_locale("xx_YY")->encoding, "EUC-JP");
    EXPECT_EQ(db.tables.find_locale("xx_YY")->xpg_name, "xx_YY.eucJP");
    EXPECT_EQ(db.tables.find_locale_option("xx_YY", "disable_l10n"), "true");
    EXPECT_EQ(db.tables.resolve_locale("old"), "xx_YY");
    EXPECT_EQ(db.tables.resolve_locale("YY"), "xx_YY");
    EXPECT_EQ(db.tables.resolve_locale("old.UTF-8"), "xx_YY");
    EXPECT_EQ(db.tables.find_locale("ja_JP")->encoding, "Shift_JIS");
    EXPECT_EQ(db.tables.find_locale("ja_JP")->xpg_name, "ja_JP.UTF-8");
    auto const encoding = db.tables.resolve_encoding("NEWEST");
    ASSERT_TRUE(encoding);
    EXPECT_EQ(encoding->name, "X-NEW");
    EXPECT_EQ(encoding->jvm_name, "J");
    EXPECT_EQ(encoding->compat, "UTF-8");
    EXPECT_TRUE(db.log.entries().empty());
}

TEST(LocaleDatabase, KeepsWhatCameBeforeAFault) {
    database db;
    std::string const first = "<locale name='xx'/>" + std::string(2000, ' ');
    EXPECT_FALSE(db.accepts("<lcdata>" + first + "<unknown/><locale name='yy'/></lcdata>"));
    EXPECT_TRUE(db.tables.find_locale("xx"));
    EXPECT_FALSE(db.tables.find_locale("yy"));
}

TEST(LocaleDatabase, RecordsModificationsThatFail) {
    database db;
    db.parse(in_lcdata(
        "<locale name='../x' encoding='UTF-8'/><locale name='en_US_POSIX' encoding='EUC-JP'/>"
        "<locale name='de_DE' encoding='../a'/><locale name='de_DE'><region_alias name='a:b'/></locale>"
        "<locale name='fr_FR'><alias name='en_US_POSIX'/></locale>"
        "<codeset><encoding name='a/b' jvm_encoding='J'/>"
        "<encoding name='windows-1252'><encoding_alias name='utf-8'/></encoding></codeset>"));
    EXPECT_EQ(db.log.entries(), (std::vector<std::string>{
                                    "LcData::addLcName::modifyLcEntry - ../x:UTF-8 - 1",
                                    "LcData::addLcName::modifyDefEncoding - en_US_POSIX:EUC-JP - 3",
                                    "LcData::addLcName::modifyDefEncoding - de_DE:../a - 1",
                                    "LcData::addRegionAliasLcName::modifyLcAliasName - de_DE:a:b - 1",
                                    "LcData::addAliasLcName::modifyLcAliasName - fr_FR:en_US_POSIX - 3",
                                    "LcData::addEncodingName::modifyEncodingDataEntry - a/b:J - 1",
                                    "LcData::addEncodingAlias::modifyEncodingAlias - windows-1252:utf-8 - 3",
                                }));
    EXPECT_EQ(db.tables.find_locale("de_DE")->encoding, "UTF-8");
}

TEST(LocaleDatabase, HandlerTakesTheFirstNonEmptyValueOfARepeatedAttribute) {
    lc_tables tables;
    event_log log;
    LcdbEventHandler handler(LcData(tables, log));
    char const * no_attributes[] = {nullptr};
    char const * attributes[] = {"name", "", "name", "xx", "name", "yy", nullptr};
    EXPECT_EQ(handler.start_element("lcdata", no_attributes), 0);
    EXPECT_EQ(handler.start_element("locale", attributes), 0);
    EXPECT_TRUE(tables.find_locale("xx"));
    EXPECT_FALSE(tables.find_locale("yy"));
    EXPECT_EQ(handler.end_element("lcdata"), LcdbEventHandler::stop);
}

TEST(LocaleDatabase, TellsWhereItIsMalformed) {
    database db;
    try {
        db.parse("<lcdata>\n  <unknown/>\n</lcdata>");
        FAIL() << "nothing thrown";
    } catch (LcRscInvalidXmlDoc const & failure) {
        EXPECT_STREQ(failure.what(),
                     "XML Parse error detected with 35 at column, 12, on line, 2 in resource file.");
    }
    EXPECT_THROW(
        parse_lcdata(LcData(db.tables, db.log), db.directory.path() / filesystem::upath(u"none.xml")),
        LcRscOpenFileFailure);
    EXPECT_THROW(parse_lcdata(LcData(db.tables, db.log), filesystem::upath(u"relative.xml")),
                 LcRscOpenFileFailure);
}

TEST(LocaleDatabase, ExceptionsHaveTheirIdentifierKindAndText) {
    struct row {
        LcRscExceptionBase exception;
        char const * id;
        int kind;
        char const * text;
    };
    for (row const & r : {
             row{LcRscOpenFileFailure("p"), "fl:i18n:LcRscOpenFileFailure", 2, "Failed to open file p"},
             row{LcRscFileReadFailure("p"), "fl:i18n:LcRscFileReadFailure", 3, "Failed to read file p"},
             row{LcRscParserCreationFailure(), "fl:i18n:LcRscParserCreationFailure", 4,
                 "Failed to create XML parser."},
             row{LcRscInvalidXmlDoc(3, 7, 9), "fl:i18n:LcRscInvalidXmlDoc", 5,
                 "XML Parse error detected with 3 at column, 7, on line, 9 in resource file."},
         }) {
        EXPECT_EQ(r.exception.msg_id(), r.id);
        EXPECT_EQ(r.exception.kind(), r.kind);
        EXPECT_STREQ(r.exception.what(), r.text);
    }
}

TEST(LocaleDatabase, ShippedFileIsAppliedWithoutAnEvent) {
    database db;
    parse_lcdata(LcData(db.tables, db.log),
                 filesystem::get_install_path() / filesystem::upath(u"bin\\lcdata.xml"));
    EXPECT_TRUE(db.log.entries().empty()) << db.log.entries().front();
    EXPECT_EQ(db.tables.resolve_locale("german"), "de_DE");
}

} // namespace
} // namespace fl::i18n::lcmgmt
