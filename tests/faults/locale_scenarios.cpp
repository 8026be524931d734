#include "tests/faults/sweep.hpp"

#include "locale/qz_locale_ctx.hpp"

#include <algorithm>
#include <fl/i18n/environment.hpp>
#include <fl/i18n/fallback_locales.hpp>

namespace fl::test {

using namespace i18n;
using LcCategory = QzLocale::LcCategory;

namespace {

constexpr char no_parser[] =
    "QzLocaleCtx::initLocaleMgmt::parseLcData - Failed to create the parser for the XML locale database.";
constexpr char not_well_formed[] = "QzLocaleCtx::initLocaleMgmt::parseLcData - invalid XML locale database.";

/// Returns a scenario of the start-up with a database, whose whole outcome is the answer. A database that
/// cannot be read is no failure, but an event.
scenario start_up(char const * name, char16_t const * database) {
    auto const prepare = [database](fault_files const & files) {
        lcmgmt::startup_inputs inputs;
        inputs.environment = {{"QZLOCALE_LCDATA_PATH", files.path("")},
                              {"QZLOCALE_LCDATA_FILENAME", database},
                              {"QZLOCALE_L10N_CONTROL", u"off"},
                              {"QZLOCALE_TERMINAL_ENCODING", u"eucJP"}};
        inputs.settings.category_names.fill({"xx_YY", "ja_JP.UTF-8"});
        inputs.settings.category_names[5] = {"no locale/at all", "qb_1"};
        return trial{[inputs] {
            lcmgmt::QzLocaleCtx const context(inputs);
            done();
            auto const events = context.events();
            auto const tells = [&](char const * event) {
                return std::find(events.begin(), events.end(), event) != events.end();
            };
            // The document is a good one, whatever happens when it is read.
            std::string text = (tells(no_parser)         ? "failed to create the parser, "
                                : tells(not_well_formed) ? "malformed, "
                                                         : "status ") +
                               std::to_string(context.status()) + ' ' + context.global().getXpgName() + ' ' +
                               context.system().getLcName(LcCategory::messages);
            for (auto const & event : events) {
                text += '\n' + event;
            }
            for (char const * const locale : {"xx_YY", "ex", "qa_0", "an_alias_of_some_length_qh_59"}) {
                text += '\n' + context.data_name(locale) + ' ' + context.xpg_name({locale, {}});
            }
            return text;
        }};
    };
    return {name, prepare, {"failed to create the parser"}, {"status 1"}};
}

std::string read_system() {
    auto const settings = platform::query_locale_settings();
    auto const environment = lcmgmt::read_environment();
    auto const path = filesystem::get_install_path();
    return settings.details.at("LANG") + std::to_string(environment.size()) +
           (path.empty() ? " without path" : "");
}

std::string ask_locale() {
    auto const locale = QzLocale::createLocale("xx_YY");
    auto const chain = get_fallback_locales_with_empty_default(*locale);
    return std::get<std::string>(locale->getOptData(LcOptDataType::jvmencoding)) +
           std::get<std::string>(locale->getOptData(LcOptDataType::termencoding)) +
           std::to_string(chain.size());
}

std::shared_ptr<QzLocale const> create_mixed() {
    auto const base =
        QzLocale::createLocale("xx_YY", {{LcCategory::time, "de_DE"}, {LcCategory::numeric, "fr_FR"}});
    return QzLocale::createLocale(*base, LcCategory::messages, *QzLocale::createLocaleWithCForNumeric("ex"));
}

constexpr char16_t long_value[] = u"a value that is longer than any short string would be, \u3042 and so on";

void set_old_value() {
    i18n::setenv(u"FL_I18N_FAULTS", long_value, 1, false);
}

template <class Action>
scenario refuse(char const * name, Action act) {
    return {name, action(act), {"Invalid locale name"}};
}

} // namespace

std::vector<scenario> locale_scenarios() {
    return {
        start_up("start up with a small database", u"small.xml"),
        start_up("start up with a large database", u"large.xml"),
        start_up("start up with a bad database", u"bad.xml"),
        start_up("start up without a database", u"missing.xml"),
        {"read the system's settings", action(read_system), {}, {"ja_JP.UTF-84 without path"}},
        {"create a locale",
         action([] { return QzLocale::createLocale("a_locale_with_a_long_name_XX.ISO-8859-2@variant"); })},
        {"create a mixed locale", action(create_mixed)},
        refuse("create a locale of a bad name",
               [] { return QzLocale::createLocale("../a_name_that_is_none_and_long"); }),
        {"ask a locale", action(ask_locale)},
        {"change the global locale", action([] { change_global_locale(*create_mixed()); })},
        {"set the global locale",
         action([] { return experimental::set_global_locale("ru_RU_with_a_name_that_is_long.KOI8-R"); })},
        refuse("set a bad global locale", [] { return experimental::set_global_locale("no locale name"); }),
        {"set the messages locale", action([] { return set_lc_messages("de_DE_with_a_name_that_is_long"); })},
        refuse("set a bad messages locale", [] { return set_lc_messages("no locale name"); }),
        {"disable localisation", action(disable_l10n_resource)},
        {"disable it for the classic locale",
         action(disable_l10n_resource, [] { set_lc_messages("en_US_POSIX"); })},
        {"get a variable", action([] { return i18n::getenv(u"FL_I18N_FAULTS"); }, set_old_value)},
        {"set a variable",
         action([] { return i18n::setenv(std::string("FL_I18N_FAULTS"), ustring(400, u'\u3042'), 1, false); },
                set_old_value)},
        {"set a new variable",
         action([] { return i18n::setenv(u"FL_I18N_FAULTS_NEW", long_value, 0, false); })},
        {"remove a variable", action([] { return i18n::unsetenv(u"FL_I18N_FAULTS"); }, set_old_value)},
    };
}

} // namespace fl::test
