// The start-up of a process as its environment steers it. Runs in a process of its own, see the list of
// tests.

#include <cstdlib>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/locale_status.hpp>
#include <gtest/gtest.h>
#include <string>

namespace fl::i18n {
namespace {

class ProcessStartUp : public testing::Test {
protected:
    void SetUp() override {
        if (!std::getenv("FL_I18N_TEST_START_UP")) {
            GTEST_SKIP() << "FL_I18N_TEST_START_UP is not set";
        }
    }
};

TEST_F(ProcessStartUp, HappensOnFirstUse) {
    EXPECT_EQ(QzLcUtil::getLcStatus(), LcStatusNotInitialized);
    EXPECT_EQ(QzLcUtil::getInitStatusMsg(), "Zantrel locale management system not initialized.");
    EXPECT_EQ(QzLocale::classic().getEncoding(), "UTF-8");
    EXPECT_NE(QzLcUtil::getLcStatus(), LcStatusNotInitialized);
}

TEST_F(ProcessStartUp, ReadsTheEnvironment) {
    QzLocale const & global = QzLocale::global();
    EXPECT_EQ(QzLcUtil::getLcStatus(), LcStatusDefaultsInUse) << "the database named is missing";
    EXPECT_EQ(QzLcUtil::getInitWarningMsg(), "Failed to open the XML locale database.");
    EXPECT_EQ(QzLcUtil::getDataPathNames()["xml_locale_database_path"], "");
    EXPECT_FALSE(get_l10n_resource_status());
    EXPECT_EQ(global.getLcName(QzLocale::LcCategory::messages), "en_US_POSIX");
    EXPECT_EQ(std::get<std::string>(global.getOptData(LcOptDataType::termencoding)), "EUC-JP");
    EXPECT_EQ(QzLcUtil::getLocaleInformation().count("time_zone"), 1u);
}

TEST_F(ProcessStartUp, LocksTheGlobalLocaleForGood) {
    QzLocale const & before = QzLocale::global();
    lock_global_locale_setting();
    change_global_locale(*QzLocale::createLocale("ja_JP"));
    EXPECT_FALSE(experimental::set_global_locale("ja_JP"));
    EXPECT_FALSE(set_lc_messages("ja"));
    EXPECT_EQ(&QzLocale::global(), &before);
}

} // namespace
} // namespace fl::i18n
