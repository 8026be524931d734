#include "tools/fl_i18n/doctor.hpp"

#include "foundation/ascii.hpp"
#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/files.hpp"
#include "tools/fl_i18n/locale_facts.hpp"

#include <fl/filesystem/path.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/environment.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/locale_status.hpp>
#include <fl/i18n/ustring.hpp>

namespace fl::tool {

namespace {

using i18n::QzLcUtil;
using i18n::QzLocale;

constexpr char const * variable_names[] = {"QZLOCALE_LCDATA_PATH",
                                           "QZLOCALE_LCDATA_FILENAME",
                                           "QZLOCALE_L10N_CONTROL",
                                           "QZLOCALE_TERMINAL_ENCODING",
                                           "QZ_CHAR_ENCODING_DIAG",
                                           "TMPDIR",
                                           "TMP",
                                           "TEMP",
                                           "USERPROFILE"};

std::string install_path() {
    return i18n::ustring_to_utf8(display_path(filesystem::get_install_path().string()));
}

std::string value_of(variables const & set, char const * name) {
    auto const found = set.find(name);
    return found != set.end() ? found->second : std::string();
}

bool is_known_encoding(std::string const & name) {
    return !i18n::get_standard_encoding_name(name).empty();
}

std::string what_to_do(locale_database const & database) {
    switch (database.is) {
    case locale_database::state::whole:
        return " The events name them: correct " + database.file;
    case locale_database::state::in_part:
        return " Only what stands before its mistake is in use: correct " + database.file +
               "; fl-i18n lint tells the place";
    case locale_database::state::missing:
        break;
    }
    return " The built-in tables are in use: " +
           (database.file.empty() ? "name one" : "put it at " + database.file + ", or name another") +
           " by QZLOCALE_LCDATA_PATH and QZLOCALE_LCDATA_FILENAME";
}

/// Tells whether an event is about a failure: it ends in the status of an error, or its text says so.
bool is_failure(std::string const & event) {
    std::size_t const status = event.rfind(" - ");
    std::string const number = status == std::string::npos ? std::string() : event.substr(status + 3);
    std::size_t const digits = number.starts_with('-') ? 1 : 0;
    bool const has_status =
        number.size() > digits && number.find_first_not_of("0123456789", digits) == std::string::npos;
    return has_status || event.find("cannot be used: ") != std::string::npos ||
           event.find("The encoding is not known: ") != std::string::npos;
}

} // namespace

variables read_variables() {
    variables set;
    for (char const * const name : variable_names) {
        if (i18n::isenv(std::string(name))) {
            set[name] = i18n::ustring_to_utf8(i18n::getenv(std::string(name)));
        }
    }
    return set;
}

void examine_variables(variables const & set, diagnosis & result) {
    for (char const * const name : variable_names) {
        bool const is_set = set.contains(name);
        result.facts.push_back({name, is_set ? "\"" + set.at(name) + "\"" : "not set", {}});
    }
    std::string const control = value_of(set, "QZLOCALE_L10N_CONTROL");
    if (!control.empty() && !ascii::equal_ignoring_case(control, "on") &&
        !ascii::equal_ignoring_case(control, "off")) {
        result.problems.push_back("QZLOCALE_L10N_CONTROL is \"" + control +
                                  "\", which means nothing: set it to on or off, or remove it");
    }
    std::string const terminal = value_of(set, "QZLOCALE_TERMINAL_ENCODING");
    if (!terminal.empty() && !is_known_encoding(terminal)) {
        result.problems.push_back(
            "QZLOCALE_TERMINAL_ENCODING is \"" + terminal +
            "\", which is no known encoding: set it to one, such as UTF-8, or remove it");
    }
    std::string const directory = value_of(set, "QZLOCALE_LCDATA_PATH");
    if (!directory.empty() && !is_directory(directory)) {
        result.problems.push_back(
            "QZLOCALE_LCDATA_PATH is \"" + directory +
            "\", which is no directory: set it to that of the locale database, or remove it");
    }
}

void examine_start_up(diagnosis & result) {
    i18n::initLcMgmtSystem();
    locale_database const database = find_database();
    using how = locale_database::state;
    result.facts.push_back({"locale database", database.file.empty() ? "none" : database.file,
                            database.is == how::in_part   ? "in use up to its mistake"
                            : database.is == how::missing ? "not in use"
                                                          : ""});
    result.facts.push_back({"start-up", QzLcUtil::getInitStatusMsg(), {}});
    if (QzLcUtil::getLcStatus() != i18n::LcStatusInitialized) {
        result.problems.push_back(QzLcUtil::getInitWarningMsg() + what_to_do(database));
    }
    for (std::string const & event : QzLcUtil::getEventLog()) {
        result.facts.push_back({"event", event, {}});
        if (is_failure(event)) {
            result.problems.push_back("The start-up met a failure: " + event);
        }
    }
}

void examine_locales(diagnosis & result) {
    QzLocale const & global = QzLocale::global();
    for (fact & each : describe_locale(global)) {
        each.label = "global " + each.label;
        result.facts.push_back(std::move(each));
    }
    auto const messages = QzLocale::LcCategory::messages;
    result.facts.push_back({"system messages", QzLocale::system().getLcName(messages), {}});
    result.facts.push_back({"localised resources", i18n::get_l10n_resource_status() ? "in use" : "off", {}});
    if (!is_known_encoding(global.getEncoding())) {
        result.problems.push_back(
            "The global locale's encoding " + global.getEncoding() +
            " is not known: correct the locale's settings or its entry in the locale database");
    }
}

diagnosis diagnose(std::vector<std::string> const & roots) {
    diagnosis result;
    examine_versions(result);
    std::string const installed = install_path();
    result.facts.push_back({"installation", installed, {}});
    if (installed.empty()) {
        result.problems.emplace_back(
            "The library cannot tell where it is installed: give the roots to it, and the "
            "locale database by QZLOCALE_LCDATA_PATH");
    }
    examine_variables(read_variables(), result);
    examine_start_up(result);
    examine_locales(result);
    for (std::string const & root : roots.empty() ? std::vector{installed} : roots) {
        if (!root.empty()) {
            examine_root(root, result);
        }
    }
    return result;
}

} // namespace fl::tool
