#include "tests/faults/sweep.hpp"

#include "locale/qz_locale_ctx.hpp"

#include <algorithm>
#include <fl/i18n/environment.hpp>
#include <fl/i18n/fallback_locales.hpp>
#include <fl/i18n/locale.hpp>
#include <memory>

namespace fl::test {

using namespace i18n;
using LcCategory = QzLocale::LcCategory;

namespace {

std::string answer(std::string const & text) {
    done();
    return text;
}

std::string answer(bool result) {
    done();
    return result ? "true" : "false";
}

std::string answer(std::shared_ptr<QzLocale const> const & locale) {
    done();
    std::string text = locale->getXpgName();
    for (unsigned i = 0; i < 6; ++i) {
        text += ' ' + locale->getLcName(static_cast<LcCategory>(i));
    }
    return text;
}

constexpr char no_parser[] = "QzLocaleCtx::initLocaleMgmt::parseLcData - "
                             "Failed to create the parser for the XML locale database.";

/// The start-up with a database, whose whole outcome is the answer.
trial start_up(fault_files const & files, char16_t const * database) {
    auto const inputs = std::make_shared<lcmgmt::startup_inputs>();
    inputs->environment["QZLOCALE_LCDATA_PATH"] = files.path("");
    inputs->environment["QZLOCALE_LCDATA_FILENAME"] = database;
    inputs->environment["QZLOCALE_L10N_CONTROL"] = u"off";
    inputs->environment["QZLOCALE_TERMINAL_ENCODING"] = u"eucJP";
    inputs->settings.category_names.fill({"xx_YY", "ja_JP.UTF-8"});
    inputs->settings.category_names[5] = {"no locale/at all", "qb_1"};
    return {[inputs] {
        lcmgmt::QzLocaleCtx const context(*inputs);
        done();
        auto const events = context.events();
        bool const has_parser = std::find(events.begin(), events.end(), no_parser) == events.end();
        std::string text = (has_parser ? "" : "failed to create the parser, ") +
                           ("status " + std::to_string(context.status())) + ' ' +
                           context.global().getXpgName() + ' ' +
                           context.system().getLcName(LcCategory::messages);
        for (auto const & event : events) {
            text += '\n' + event;
        }
        for (char const * const name : {"xx_YY", "ex", "qa_0", "an_alias_of_some_length_qh_59"}) {
            text += '\n' + context.data_name(name) + ' ' + context.xpg_name({name, {}});
        }
        return text;
    }};
}

trial start_up_small(fault_files const & files) {
    return start_up(files, u"small.xml");
}

trial start_up_large(fault_files const & files) {
    return start_up(files, u"large.xml");
}

trial start_up_bad(fault_files const & files) {
    return start_up(files, u"bad.xml");
}

trial start_up_missing(fault_files const & files) {
    return start_up(files, u"missing.xml");
}

trial read_system(fault_files const &) {
    return {[] {
        auto const settings = platform::query_locale_settings();
        auto const environment = lcmgmt::read_environment();
        auto const path = filesystem::get_install_path();
        done();
        return settings.details.at("LANG") + std::to_string(environment.size()) +
               (path.empty() ? "failed" : "");
    }};
}

trial create(fault_files const &) {
    return {[] { return answer(QzLocale::createLocale("a_locale_with_a_long_name_XX.ISO-8859-2@variant")); }};
}

trial create_mixed(fault_files const &) {
    return {[] {
        auto const base =
            QzLocale::createLocale("xx_YY", {{LcCategory::time, "de_DE"}, {LcCategory::numeric, "fr_FR"}});
        return answer(QzLocale::createLocale(*base, LcCategory::messages,
                                             *QzLocale::createLocaleWithCForNumeric("ex")));
    }};
}

trial create_refused(fault_files const &) {
    return {[] { return answer(QzLocale::createLocale("../a_name_that_is_none_and_long_enough")); }};
}

trial ask_locale(fault_files const &) {
    return {[] {
        auto const locale = QzLocale::createLocale("xx_YY");
        auto const encoding = std::get<std::string>(locale->getOptData(LcOptDataType::jvmencoding));
        auto const terminal = std::get<std::string>(locale->getOptData(LcOptDataType::termencoding));
        auto const chain = get_fallback_locales_with_empty_default(*locale);
        return answer(encoding + ' ' + terminal + ' ' + std::to_string(chain.size()) +
                      QzLocale::system().getEncoding());
    }};
}

trial change_global(fault_files const &) {
    std::shared_ptr<QzLocale const> const locale =
        QzLocale::createLocale("xx_YY", {{LcCategory::time, "de_DE"}});
    return {[=] {
        change_global_locale(*locale);
        return answer(true);
    }};
}

trial set_global(fault_files const &) {
    return {[] { return answer(experimental::set_global_locale("ru_RU_with_a_name_that_is_long.KOI8-R")); }};
}

trial set_global_refused(fault_files const &) {
    return {[] { return answer(experimental::set_global_locale("no locale name")); }};
}

trial set_messages(fault_files const &) {
    return {[] { return answer(set_lc_messages("de_DE_with_a_name_that_is_long")); }};
}

trial set_messages_refused(fault_files const &) {
    return {[] { return answer(set_lc_messages("no locale name")); }};
}

trial disable(fault_files const &) {
    return {[] {
        disable_l10n_resource();
        return answer(true);
    }};
}

trial disable_for_classic(fault_files const & files) {
    set_lc_messages("en_US_POSIX");
    return disable(files);
}

constexpr char16_t long_value[] = u"a value that is longer than any short string would be, \u3042 and so on";

trial get_variable(fault_files const &) {
    i18n::setenv(u"FL_I18N_FAULTS", ustring(400, u'\u3042'), 1, false);
    return {[] {
        ustring const value = i18n::getenv(u"FL_I18N_FAULTS");
        done();
        return std::to_string(value.size());
    }};
}

trial set_variable(fault_files const &) {
    i18n::setenv(u"FL_I18N_FAULTS", u"old", 1, false);
    return {[] {
        int const result = i18n::setenv(std::string("FL_I18N_FAULTS"), long_value, 1, false);
        return answer(std::string(result == 0 ? "set" : "failed"));
    }};
}

trial set_new_variable(fault_files const &) {
    return {[] {
        int const result = i18n::setenv(u"FL_I18N_FAULTS_NEW", long_value, 0, false);
        return answer(std::string(result == 0 ? "set" : "failed"));
    }};
}

trial remove_variable(fault_files const &) {
    i18n::setenv(u"FL_I18N_FAULTS", long_value, 1, false);
    return {[] {
        int const result = i18n::unsetenv(u"FL_I18N_FAULTS");
        return answer(std::string(result == 0 ? "removed" : "failed"));
    }};
}

} // namespace

std::vector<scenario> locale_scenarios() {
    // A database that cannot be read is no failure of the start-up, but an event.
    std::vector<std::string> const defaults = {"status 1"};
    return {
        {"start up with a small database", start_up_small, {"failed to create the parser"}, defaults},
        {"start up with a large database", start_up_large, {"failed to create the parser"}, defaults},
        {"start up with a bad database", start_up_bad, {"failed to create the parser"}, defaults},
        {"start up without a database", start_up_missing, {}, defaults},
        {"read the system's settings", read_system, {}, {"ja_JP.UTF-84failed"}},
        {"create a locale", create},
        {"create a mixed locale", create_mixed},
        {"create a locale of a bad name", create_refused, {"Invalid locale name"}},
        {"ask a locale", ask_locale},
        {"change the global locale", change_global},
        {"set the global locale", set_global},
        {"set the global locale by a bad name", set_global_refused, {"Invalid locale name"}},
        {"set the messages locale", set_messages},
        {"set the messages locale by a bad name", set_messages_refused, {"Invalid locale name"}},
        {"disable localisation", disable},
        {"disable localisation of the classic locale", disable_for_classic},
        {"get a variable", get_variable},
        {"set a variable", set_variable},
        {"set a new variable", set_new_variable},
        {"remove a variable", remove_variable},
    };
}

} // namespace fl::test
