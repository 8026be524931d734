#include "locale/qz_locale_ctx.hpp"
#include "tests/support/temporary_directory.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace fl::i18n::lcmgmt {
namespace {

using LcCategory = QzLocale::LcCategory;

startup_inputs inputs_for(std::string const & system_name) {
    startup_inputs inputs;
    inputs.settings.category_names.fill({system_name});
    return inputs;
}

bool has_event(QzLocaleCtx const & context, std::string const & entry) {
    auto const events = context.events();
    return std::find(events.begin(), events.end(), entry) != events.end();
}

TEST(StartUp, UsesTheDefaultsWithoutADatabase) {
    QzLocaleCtx const context(inputs_for("ja_JP"));
    EXPECT_EQ(context.status(), LcStatusDefaultsInUse);
    EXPECT_EQ(context.warning_message(), "No XML locale database was loaded.");
    EXPECT_EQ(context.database_path(), "");
    EXPECT_EQ(context.events(), (std::vector<std::string>{
                                    "QzLocaleCtx::initQzLcCtx - Locale context was initialized.",
                                    "QzLocaleCtx::initLocaleMgmt - LcMgmt initialization has started.",
                                    "get_lcdata_path - Failed to get the install path - -1",
                                    "QzLocaleCtx::initLocaleMgmt - No XML locale database was loaded.",
                                }));
}

TEST(StartUp, ReportsWhatBecameOfTheDatabase) {
    struct row {
        char const * text; ///< null for no file
        LcStatusCode status;
        char const * event;
    };
    for (row const & r : {
             row{"<lcdata><locale name='xx_YY' encoding='EUC-JP'/></lcdata>", LcStatusInitialized,
                 "QzLocaleCtx::initLocaleMgmt - XML locale database was loaded."},
             row{"<lcdata><locale name='xx_YY' encoding='EUC-JP'><alias name='a/b'/></locale></lcdata>",
                 LcStatusDefaultsInUse, "LcData::addAliasLcName::modifyLcAliasName - xx_YY:a/b - 1"},
             row{"<lcdata><locale name='xx_YY' encoding='EUC-JP'/><bad/></lcdata>", LcStatusDefaultsInUse,
                 "QzLocaleCtx::initLocaleMgmt::parseLcData - invalid XML locale database."},
             row{nullptr, LcStatusDefaultsInUse,
                 "QzLocaleCtx::initLocaleMgmt::parseLcData - Failed to open the XML locale database."},
         }) {
        SCOPED_TRACE(r.event);
        test::temporary_directory directory;
        startup_inputs inputs = inputs_for("xx-YY");
        inputs.environment["QZLOCALE_LCDATA_PATH"] = directory.path().string();
        inputs.environment["QZLOCALE_LCDATA_FILENAME"] = u"own.xml";
        if (r.text != nullptr) {
            directory.write(u"own.xml", r.text);
        }
        QzLocaleCtx const context(inputs);
        EXPECT_EQ(context.status(), r.status);
        EXPECT_TRUE(has_event(context, r.event));
        EXPECT_TRUE(has_event(
            context, "get_lcdata_path - XML locale data path was retrieved from QZLOCALE_LCDATA_PATH."));
        EXPECT_TRUE(has_event(
            context,
            "get_lcdata_path - XML locale data file name was retrieved from QZLOCALE_LCDATA_FILENAME."));
        bool const was_read =
            has_event(context, "QzLocaleCtx::initLocaleMgmt - XML locale database was loaded.");
        EXPECT_EQ(context.database_path().empty(), !was_read);
        EXPECT_EQ(context.warning_message().empty(), r.status == LcStatusInitialized);
        EXPECT_EQ(context.global().getEncoding(), r.text != nullptr ? "EUC-JP" : "UTF-8");
    }
}

TEST(StartUp, TakesTheDatabaseFromTheInstallationByDefault) {
    event_log log;
    filesystem::upath const base(u"C:\\app");
    EXPECT_EQ(get_lcdata_path({}, base, log), filesystem::upath(u"C:\\app\\bin\\lcdata.xml"));
    EXPECT_EQ(get_lcdata_path({{"QZLOCALE_LCDATA_FILENAME", u"x.xml"}}, base, log),
              filesystem::upath(u"C:\\app\\bin\\x.xml"));
    EXPECT_EQ(get_lcdata_path({{"QZLOCALE_LCDATA_PATH", u"D:/data"}}, {}, log),
              filesystem::upath(u"D:\\data\\lcdata.xml"));
}

TEST(StartUp, BuildsTheSystemLocaleFromTheSettings) {
    struct row {
        char const * system_name;
        unsigned code_page;
        char const *name, *user_name, *encoding, *xpg_name;
    };
    for (row const & r : {
             row{"ja-JP", 932, "ja_JP", "ja-JP", "Shift_JIS", "ja_JP.Shift_JIS"},
             row{"ja-JP", 65001, "ja_JP", "ja-JP", "UTF-8", "ja_JP.UTF-8"},
             row{"ja_JP.eucJP", 0, "ja_JP", "ja_JP.eucJP", "EUC-JP", "ja_JP.EUC-JP"},
             row{"ja_JP.nonsense", 0, "ja_JP", "ja_JP.nonsense", "UTF-8", "ja_JP.UTF-8"},
             row{"sr_RS@latin", 0, "sr_Latn_RS", "sr_RS@latin", "UTF-8", "sr_RS.UTF-8@latin"},
             row{"xx_YY", 0, "xx_YY", "xx_YY", "UTF-8", "xx_YY.UTF-8"},
             row{"iw_IL", 0, "he_IL", "iw_IL", "UTF-8", "he_IL.UTF-8"},
             row{"C", 0, "en_US_POSIX", "C", "UTF-8", "en_US_POSIX.UTF-8"},
             row{"en_US_POSIX", 0, "en_US_POSIX", "en_US_POSIX", "UTF-8", "en_US_POSIX.UTF-8"},
             row{"zh-CHT", 0, "zh_TW", "zh-CHT", "UTF-8", "zh_TW.UTF-8"},
             row{"../../etc/x", 0, "en_US_POSIX", "", "UTF-8", "en_US_POSIX.UTF-8"},
             row{"", 0, "en_US_POSIX", "", "UTF-8", "en_US_POSIX.UTF-8"},
         }) {
        SCOPED_TRACE(r.system_name);
        startup_inputs inputs = inputs_for(r.system_name);
        inputs.settings.ansi_code_page = r.code_page;
        QzLocaleCtx const context(inputs);
        QzLocale const & locale = context.system();
        EXPECT_TRUE(locale == context.global());
        EXPECT_EQ(locale.getLcName(LcCategory::messages), r.name);
        EXPECT_EQ(locale.getUserLcName(LcCategory::ctype), r.user_name);
        EXPECT_EQ(locale.isUserLocale(LcCategory::ctype), *r.user_name != '\0');
        EXPECT_EQ(locale.getEncoding(), r.encoding);
        EXPECT_EQ(locale.getXpgName(), r.xpg_name);
        EXPECT_EQ(context.classic().getEncoding(), "UTF-8");
    }
}

TEST(StartUp, GoesOnFromAnUnusableNameToTheNextChoice) {
    startup_inputs inputs;
    inputs.settings.category_names.fill({"../../etc/x", "a:b", "de_DE.../../x", "ja_JP.eucJP", "de_DE"});
    QzLocaleCtx const context(inputs);
    EXPECT_EQ(context.system().getLcName(LcCategory::messages), "ja_JP");
    EXPECT_EQ(context.system().getEncoding(), "EUC-JP");
    EXPECT_TRUE(
        has_event(context, "QzLocaleCtx::initGlobalLocale - The system's locale name cannot be used: a:b"));
}

TEST(StartUp, RecordsALocaleWhoseEncodingHasNoConverter) {
    test::temporary_directory directory;
    directory.write(u"lcdata.xml", "<lcdata><locale name='xx_YY' encoding='nonsense'/></lcdata>");
    startup_inputs inputs = inputs_for("xx_YY");
    inputs.environment["QZLOCALE_LCDATA_PATH"] = directory.path().string();
    QzLocaleCtx const context(inputs);
    EXPECT_EQ(context.process_encoding(), nullptr);
    EXPECT_TRUE(has_event(context, "QzLocaleCtx::initGlobalLocale - Failed to set default locale - -1"));
}

TEST(StartUp, KnowsTheTerminalEncodings) {
    startup_inputs inputs = inputs_for("de_DE");
    inputs.settings.terminal_input_code_page = 850;
    inputs.settings.terminal_output_code_page = 437;
    {
        QzLocaleCtx const context(inputs);
        EXPECT_EQ(context.global().getOptData(LcOptDataType::terminputencoding), LcOptData("IBM850"));
        EXPECT_EQ(context.global().getOptData(LcOptDataType::termoutputencoding), LcOptData("IBM437"));
        EXPECT_EQ(context.global().getOptData(LcOptDataType::termencoding), LcOptData("IBM437"));
    }
    inputs.environment["QZLOCALE_TERMINAL_ENCODING"] = u"sjis";
    for (auto const item :
         {LcOptDataType::termencoding, LcOptDataType::terminputencoding, LcOptDataType::termoutputencoding}) {
        EXPECT_EQ(QzLocaleCtx(inputs).global().getOptData(item), LcOptData("Shift_JIS"));
    }
    inputs.environment["QZLOCALE_TERMINAL_ENCODING"] = u"no-such-encoding";
    QzLocaleCtx const context(inputs);
    EXPECT_EQ(context.global().getOptData(LcOptDataType::termoutputencoding), LcOptData("IBM437"));
    EXPECT_TRUE(
        has_event(context, "QzLocaleCtx::initLocaleMgmt - The encoding is not known: no-such-encoding"));
}

TEST(L10nControl, IsReadFromTheEnvironment) {
    struct row {
        char16_t const * value;
        int control;
    };
    for (row const & r : {row{u"ON", 1}, row{u"on", 1}, row{u"Off", 2}, row{u"on ", 0}, row{u"", 0},
                          row{u"offf", 0}, row{u"1", 0}}) {
        EXPECT_EQ(read_l10n_control(r.value), r.control);
    }
}

TEST(L10nControl, DecidesWithTheDatabaseAboutLocalisedResources) {
    struct row {
        char16_t const * control;
        char const * disable; ///< of the locale in the database
        bool localised, localised_after_disable;
    };
    for (row const & r : {
             row{u"", "", true, false},
             row{u"off", "", false, false},
             row{u"on", "", true, true},
             row{u"", "true", false, false},
             row{u"", "false", true, false},
             row{u"on", "true", true, true},
         }) {
        test::temporary_directory directory;
        directory.write(u"lcdata.xml", "<lcdata><locale name='ja_JP'><l10n disable='" +
                                           std::string(*r.disable ? r.disable : "no") +
                                           "'/></locale></lcdata>");
        startup_inputs inputs = inputs_for("ja_JP");
        inputs.environment["QZLOCALE_L10N_CONTROL"] = r.control;
        inputs.environment["QZLOCALE_LCDATA_PATH"] = directory.path().string();
        QzLocaleCtx context(inputs);
        EXPECT_EQ(context.get_l10n_resource_status(), r.localised);
        EXPECT_EQ(context.global().getLcName(LcCategory::messages), r.localised ? "ja_JP" : "en_US_POSIX");
        EXPECT_EQ(context.global().getLcName(LcCategory::ctype), "ja_JP");
        context.set_global_locale("de_DE");
        EXPECT_EQ(context.get_l10n_resource_status(), r.control != ustring(u"off"))
            << "the switch is per locale";
        context.disable_l10n_resource();
        EXPECT_EQ(context.get_l10n_resource_status(), r.localised_after_disable);
    }
}

TEST(GlobalLocale, ChangesAndIsLocked) {
    QzLocaleCtx context(inputs_for("de_DE"));
    QzLocaleImpl const & first = context.global();
    EXPECT_TRUE(context.set_global_locale("ja_JP"));
    EXPECT_TRUE(has_event(context, "QzLocaleCtx::setLocale - Global Locale setting was changed."));
    EXPECT_EQ(first.getLcName(LcCategory::messages), "de_DE") << "the replaced locale stays valid";
    EXPECT_TRUE(context.set_lc_messages("fr"));
    EXPECT_EQ(context.global().getLcName(LcCategory::messages), "fr");
    EXPECT_EQ(context.global().getLcName(LcCategory::time), "ja_JP");
    EXPECT_TRUE(context.set_lc_messages("fr"));
    EXPECT_TRUE(has_event(context, "QzLocaleCtx::QzLocaleCtx::set_lc_messages - "
                                   "Provided locale is same as current locale"));

    QzLocaleImpl const & current = context.global();
    EXPECT_THROW(context.set_lc_messages("../x"), QzLcInvLcName);
    EXPECT_THROW(context.set_global_locale("a/b"), QzLcInvLcName);
    EXPECT_EQ(&context.global(), &current);
    EXPECT_TRUE(context.set_global_locale("ko_KR"));
    EXPECT_TRUE(context.set_global_locale("ja_JP"));
    EXPECT_TRUE(context.set_lc_messages("fr"));
    EXPECT_EQ(&context.global(), &current) << "equal locales are kept once";

    context.lock_global_locale_setting();
    std::size_t const events = context.events().size();
    EXPECT_FALSE(context.set_global_locale("ko_KR"));
    EXPECT_FALSE(context.set_lc_messages("ko"));
    context.change_global_locale(context.classic().records());
    context.disable_l10n_resource();
    EXPECT_EQ(&context.global(), &current);
    EXPECT_TRUE(context.get_l10n_resource_status());
    EXPECT_EQ(context.events().size(), events + 4);
}

TEST(GlobalLocale, KeepsTheClassicMessagesWhileLocalisedResourcesAreDisabled) {
    QzLocaleCtx context(inputs_for("de_DE"));
    context.disable_l10n_resource();
    EXPECT_TRUE(has_event(context, "QzLocaleCtx::QzLocaleCtx::change_current_locale - "
                                   "Locale setting was changed to disable L10n."));
    EXPECT_TRUE(has_event(context, "QzLocaleCtx::QzLocaleCtx::disable_l10n_rsc - L10n was disabled."));
    EXPECT_TRUE(context.set_global_locale("ja_JP"));
    EXPECT_EQ(context.global().getLcName(LcCategory::messages), "en_US_POSIX");
    EXPECT_EQ(context.global().getLcName(LcCategory::collate), "ja_JP");
    EXPECT_FALSE(context.set_lc_messages("ja"));

    QzLocaleCtx classic(inputs_for("C"));
    classic.disable_l10n_resource();
    EXPECT_TRUE(has_event(classic, "QzLocaleCtx::QzLocaleCtx::disable_l10n_rsc - "
                                   "No need to perform disable operation."));
}

} // namespace
} // namespace fl::i18n::lcmgmt
