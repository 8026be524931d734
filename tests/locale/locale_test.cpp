#include <boost/exception_ptr.hpp>
#include <fl/i18n/fallback_locales.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/locale_status.hpp>
#include <gtest/gtest.h>
#include <string>
#include <thread>

namespace fl::i18n {
namespace {

using LcCategory = QzLocale::LcCategory;

constexpr LcCategory all_categories[] = {LcCategory::ctype,   LcCategory::collate,  LcCategory::time,
                                         LcCategory::numeric, LcCategory::monetary, LcCategory::messages};

TEST(Locale, ClassicIsFixed) {
    QzLocale const & classic = QzLocale::classic();
    for (LcCategory const category : all_categories) {
        EXPECT_EQ(classic.getLcName(category), "en_US_POSIX");
        EXPECT_FALSE(classic.isUserLocale(category));
        EXPECT_EQ(classic.getUserLcName(category), "");
    }
    EXPECT_EQ(classic.getEncoding(), "UTF-8");
    EXPECT_EQ(classic.getXpgName(), "en_US_POSIX.UTF-8");
    EXPECT_EQ(&classic, &QzLocale::classic());
    EXPECT_TRUE(classic == *QzLocale::createLocale("en_US_POSIX"));
}

TEST(Locale, TellsItsParts) {
    struct row {
        char const *name, *language, *territory, *encoding, *xpg_name;
        int paper_size;
    };
    for (row const & r : {
             row{"ja_JP", "ja", "JP", "UTF-8", "ja_JP.UTF-8", 9},
             row{"en_US", "en", "US", "UTF-8", "en_US.UTF-8", 1},
             row{"ja_JP.EUC-JP", "ja", "JP", "EUC-JP", "ja_JP.EUC-JP", 9},
             row{"sr_Latn_RS", "sr", "RS", "UTF-8", "sr_RS.UTF-8@latin", 9},
             row{"xx_ZZ", "xx", "ZZ", "UTF-8", "xx_ZZ.UTF-8", 9},
             row{"", "", "", "UTF-8", ".UTF-8", 9},
         }) {
        SCOPED_TRACE(r.name);
        auto const locale = QzLocale::createLocale(r.name);
        for (LcCategory const category : all_categories) {
            EXPECT_EQ(locale->getLcName(category), r.name);
            EXPECT_EQ(locale->getLanguage(category), r.language);
            EXPECT_EQ(locale->getTerritory(category), r.territory);
        }
        EXPECT_EQ(locale->getEncoding(), r.encoding);
        EXPECT_EQ(locale->getXpgName(), r.xpg_name);
        if (*r.name != '\0') {
            EXPECT_EQ(std::get<int>(locale->getOptData(LcOptDataType::papersize)), r.paper_size);
        }
    }
}

TEST(Locale, FactoriesOverrideCategories) {
    auto const ja = QzLocale::createLocale("ja_JP");
    auto const expect = [](QzLocale const & locale, std::string const & numeric, std::string const & messages,
                           std::string const & others) {
        EXPECT_EQ(locale.getLcName(LcCategory::ctype), others);
        EXPECT_EQ(locale.getLcName(LcCategory::numeric), numeric);
        EXPECT_EQ(locale.getLcName(LcCategory::messages), messages);
    };
    expect(*QzLocale::createLocaleWithCForNumeric("fr"), "en_US_POSIX", "fr", "fr");
    expect(*QzLocale::createLocale("fr", LcCategory::messages, "de"), "fr", "de", "fr");
    expect(*QzLocale::createLocale("fr", {{LcCategory::numeric, "ko"}, {LcCategory::messages, "de"}}), "ko",
           "de", "fr");
    expect(*QzLocale::createLocale(*ja, LcCategory::messages, "de"), "ja_JP", "de", "ja_JP");
    expect(*QzLocale::createLocale(*ja, {{LcCategory::numeric, "ko"}}), "ko", "ja_JP", "ja_JP");
    expect(*QzLocale::createLocale(*ja, LcCategory::numeric, *QzLocale::createLocale("it")), "it", "ja_JP",
           "ja_JP");
    EXPECT_TRUE(*QzLocale::createLocale(*ja) == *ja);
    EXPECT_TRUE(*QzLocale::createLocale(*ja, LcCategory::time, "de") != *ja);
    EXPECT_TRUE(*QzLocale::createLocale(QzLocale::system()) == QzLocale::system());
}

TEST(Locale, RefusesBadArguments) {
    auto const bad_category = static_cast<LcCategory>(6);
    for (char const * const name : {"../ja", "a/b", "a\\b", "C:", "ja JP", "ja..JP"}) {
        EXPECT_THROW(QzLocale::createLocale(name), QzLcInvLcName) << name;
        EXPECT_THROW(QzLocale::createLocale("ja", LcCategory::time, name), QzLcInvLcName) << name;
    }
    EXPECT_THROW(QzLocale::createLocale("ja", bad_category, "de"), QzLcInvLcCategory);
    EXPECT_THROW(QzLocale::createLocale(QzLocale::classic(), bad_category, QzLocale::classic()),
                 QzLcInvLcCategory);
    EXPECT_THROW(QzLocale::classic().getLcName(bad_category), QzLcInvLcCategory);
    EXPECT_THROW(QzLocale::classic().getOptData(static_cast<LcOptDataType>(5)), QzLcInvLcArgument);
    EXPECT_THROW(QzLocale::getLcCategory("LC_TIME"), QzLcInvLcCategory);
    EXPECT_THROW(QzLocale::getLcCategoryName(bad_category), QzLcInvLcCategory);
    EXPECT_THROW(QzLcOptDataCtx::getOptDataType("paper"), QzLcInvLcArgument);
}

TEST(Locale, MapsCategoryAndItemNames) {
    char const * const names[] = {"ctype", "collate", "time", "numeric", "monetary", "messages"};
    for (unsigned i = 0; i < 6; ++i) {
        EXPECT_EQ(static_cast<unsigned>(QzLocale::getLcCategory(names[i])), i);
        EXPECT_EQ(QzLocale::getLcCategoryName(static_cast<LcCategory>(i)), names[i]);
    }
    char const * const items[] = {"jvmencoding", "termencoding", "terminputencoding", "termoutputencoding",
                                  "papersize"};
    for (unsigned i = 0; i < 5; ++i) {
        EXPECT_EQ(static_cast<unsigned>(QzLcOptDataCtx::getOptDataType(items[i])), i);
    }
    EXPECT_EQ(QzLocale::createLocale("ja_JP.EUC-JP")->getOptData(LcOptDataType::jvmencoding),
              LcOptData("EUC_JP"));
}

TEST(Locale, ExceptionsHaveTheirIdentifierAndText) {
    struct row {
        QzLcMgmtExceptionBase exception;
        char const *id, *text;
    };
    for (row const & r : {
             row{QzLcInvLcName("x"), "fl:i18n:QzLcInvLcName", "Invalid locale name."},
             row{QzLcDataNotFound("x"), "fl:i18n:QzLcDataNotFound", "Locale data not found."},
             row{QzLcInvLcCategory("x"), "fl:i18n:QzLcInvLcCategory", "Invalid locale category."},
             row{QzLcInvLcArgument("x"), "fl:i18n:QzLcInvLcArgument", "Invalid argument."},
         }) {
        EXPECT_EQ(r.exception.getMsgId(), r.id);
        EXPECT_EQ(r.exception.getMsgText(), r.text);
        EXPECT_STREQ(r.exception.what(), r.text);
        EXPECT_EQ(r.exception.getLocaleName(), "x");
    }
}

TEST(Locale, ExceptionsTravelBetweenThreads) {
    boost::exception_ptr carried;
    std::thread([&] {
        try {
            QzLocale::createLocale("../x");
        } catch (...) {
            carried = boost::current_exception();
        }
    }).join();
    try {
        boost::rethrow_exception(carried);
        FAIL() << "nothing thrown";
    } catch (QzLcInvLcName const & e) {
        EXPECT_EQ(e.getLocaleName(), "../x");
    }
}

TEST(Locale, GlobalIsReplacedAndRestored) {
    QzLocale const & before = QzLocale::global();
    auto const copy = QzLocale::createLocale(before);
    change_global_locale(*QzLocale::createLocale("ja_JP", LcCategory::time, "de"));
    EXPECT_EQ(QzLocale::global().getLcName(LcCategory::time), "de");
    EXPECT_TRUE(experimental::set_global_locale("ko_KR"));
    EXPECT_EQ(QzLocale::global().getLcName(LcCategory::collate), "ko_KR");
    EXPECT_TRUE(set_lc_messages("fr"));
    EXPECT_EQ(QzLocale::global().getLcName(LcCategory::messages), "fr");
    EXPECT_TRUE(before == *copy);
    change_global_locale(before);
    EXPECT_TRUE(QzLocale::global() == *copy);
    EXPECT_TRUE(get_l10n_resource_status());
}

TEST(LocaleStatus, TellsItsTexts) {
    initLcMgmtSystem();
    EXPECT_NE(QzLcUtil::getLcStatus(), LcStatusNotInitialized);
    EXPECT_EQ(QzLcUtil::getInitStatusMsg(), QzLcUtil::getInitStatusMsg(QzLcUtil::getLcStatus()));
    EXPECT_EQ(QzLcUtil::getInitStatusMsg(LcStatusInitialized),
              "Zantrel locale management system initialized.");
    EXPECT_EQ(QzLcUtil::getInitStatusMsg(LcStatusDefaultsInUse),
              "Failed to load Zantrel locale database. Using Zantrel default locale setting instead.");
    EXPECT_EQ(QzLcUtil::getInitStatusMsg(LcStatusNotInitialized),
              "Zantrel locale management system not initialized.");
    EXPECT_EQ(QzLcUtil::getInitStatusMsg(static_cast<LcStatusCode>(3)), "");
    EXPECT_FALSE(QzLcUtil::getLocaleInformation().empty());
    EXPECT_EQ(QzLcUtil::getDataPathNames().count("xml_locale_database_path"), 1u);
}

TEST(FallbackLocales, GoFromTheNameToItsLanguageToTheDefault) {
    struct row {
        char const * name;
        std::vector<ustring> chain, chain_with_empty_default;
    };
    for (row const & r : {
             row{"ja_JP", {u"ja_JP", u"ja", u"en_US_POSIX"}, {u"ja_JP", u"ja", u""}},
             row{"ja", {u"ja", u"en_US_POSIX"}, {u"ja", u""}},
             row{"sr_Latn_BA", {u"sr_Latn_BA", u"sr", u"en_US_POSIX"}, {u"sr_Latn_BA", u"sr", u""}},
             row{"en_US_POSIX", {u"en_US_POSIX", u"en", u"en_US_POSIX"}, {u"en_US_POSIX", u"en", u""}},
             row{"_JP", {u"_JP", u"", u"en_US_POSIX"}, {u"_JP", u""}},
             row{"", {u"", u"en_US_POSIX"}, {u""}},
         }) {
        SCOPED_TRACE(r.name);
        auto const locale = QzLocale::createLocale(r.name);
        EXPECT_EQ(get_fallback_locales(*locale), r.chain);
        EXPECT_EQ(get_fallback_locales_with_empty_default(*locale), r.chain_with_empty_default);
    }
}

} // namespace
} // namespace fl::i18n
