#include "tools/fl_i18n/locale_facts.hpp"

#include "tools/fl_i18n/catalog/xml_document.hpp"
#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/files.hpp"

#include <algorithm>
#include <exception>
#include <fl/filesystem/path.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/environment.hpp>
#include <fl/i18n/fallback_locales.hpp>
#include <fl/i18n/locale_status.hpp>
#include <fl/i18n/ustring.hpp>
#include <map>
#include <string_view>
#include <variant>

namespace fl::tool {

namespace {

using i18n::LcOptDataType;
using i18n::QzLcUtil;
using i18n::QzLocale;
using category = QzLocale::LcCategory;

constexpr category categories[] = {category::ctype,   category::collate,  category::time,
                                   category::numeric, category::monetary, category::messages};

/// Looks in a locale database for a locale that gives an encoding for a name.
class encoding_search final : public xml::events {
public:
    explicit encoding_search(std::string name)
        : name_(std::move(name)) {}

    bool found() const noexcept { return found_; }

    void on_start(std::string_view element, std::vector<xml::attribute> const & attributes,
                  std::size_t) override {
        auto const * const name = xml::find(attributes, "name");
        if (element == "locale") {
            has_encoding_ = xml::find(attributes, "encoding") != nullptr;
        }
        if (element == "locale" || element == "alias" || element == "region_alias") {
            found_ = found_ || (has_encoding_ && name != nullptr && name->value == name_);
        }
    }
    void on_end(std::string_view, std::size_t) override {}
    void on_text(std::string_view, std::size_t, bool) override {}

private:
    std::string const name_;
    bool has_encoding_ = false;
    bool found_ = false;
};

/// Returns the file that the start-up looks for; an empty path where there is no place for it.
filesystem::upath wanted_database() {
    i18n::ustring directory = i18n::getenv("QZLOCALE_LCDATA_PATH");
    if (directory.empty() && !filesystem::get_install_path().empty()) {
        directory = (filesystem::get_install_path() / filesystem::upath(u"bin")).string();
    }
    i18n::ustring const name = i18n::getenv("QZLOCALE_LCDATA_FILENAME");
    return directory.empty()
               ? filesystem::upath()
               : filesystem::upath(directory) / filesystem::upath(name.empty() ? u"lcdata.xml" : name);
}

bool gives_encoding(std::string const & database, std::string const & locale_name) {
    encoding_search search(locale_name);
    try {
        xml::read(read_file(database), search, true);
    } catch (std::exception const &) {
        return false;
    }
    return search.found();
}

/// Returns the encoding part of a locale name.
std::string codeset(std::string const & name) {
    std::size_t const dot = name.find('.');
    return dot == std::string::npos ? std::string() : name.substr(dot + 1, name.find('@', dot) - dot - 1);
}

bool names_encoding(std::string const & name, std::string const & encoding) {
    return !name.empty() &&
           i18n::get_standard_encoding_name(name) == i18n::get_standard_encoding_name(encoding);
}

/// Returns where the system has a category's locale from.
std::string system_origin(std::string const & category_name, std::string const & system_name) {
    std::string own = "LC_";
    for (char const c : category_name) {
        own += static_cast<char>(c - 'a' + 'A');
    }
    auto const settings = QzLcUtil::getLocaleInformation();
    for (std::string const & variable : {std::string("LC_ALL"), own, std::string("LANG")}) {
        auto const setting = settings.find(variable);
        if (setting != settings.end() && setting->second == system_name) {
            return "environment variable " + variable + ": " + system_name;
        }
    }
    return "system's settings: " + system_name;
}

std::string category_origin(QzLocale const & locale, category which) {
    if (locale.isUserLocale(which)) {
        return system_origin(QzLocale::getLcCategoryName(which), locale.getUserLcName(which));
    }
    if (&locale != &QzLocale::global()) {
        return "the name given";
    }
    return which == category::messages && !i18n::get_l10n_resource_status() ? "localised resources are off"
                                                                            : "default";
}

std::string encoding_origin(QzLocale const & locale) {
    std::string const encoding = locale.getEncoding();
    std::string const name = locale.getLcName(category::ctype);
    std::string const system_name = locale.getUserLcName(category::ctype);
    if (locale.isUserLocale(category::ctype) && QzLcUtil::getLocaleInformation().contains("ansi_code_page")) {
        return "system's code page " + QzLcUtil::getLocaleInformation()["ansi_code_page"];
    }
    for (std::string const & each : {system_name, name}) {
        if (names_encoding(codeset(each), encoding)) {
            return "encoding part of " + each;
        }
    }
    locale_database const database = find_database();
    switch (database.is) {
    case locale_database::state::whole:
        if (gives_encoding(database.file, name)) {
            return "locale database";
        }
        break;
    case locale_database::state::in_part:
        return "built-in tables, or the locale database up to its mistake";
    case locale_database::state::missing:
        break;
    }
    return "built-in tables, UTF-8 for a locale that they lack";
}

std::string terminal_origin(QzLocale const & locale, std::string const & encoding) {
    i18n::ustring const variable = i18n::getenv("QZLOCALE_TERMINAL_ENCODING");
    if (names_encoding(i18n::ustring_to_utf8(variable), encoding)) {
        return "environment variable QZLOCALE_TERMINAL_ENCODING";
    }
    return encoding == locale.getEncoding() ? "that of the locale" : "system's settings";
}

std::string paper(int size) {
    return size == 9 ? "A4" : size == 1 ? "Letter" : std::to_string(size);
}

std::string java_encoding(QzLocale const & locale) {
    try {
        return std::get<std::string>(locale.getOptData(LcOptDataType::jvmencoding));
    } catch (i18n::QzLcDataNotFound const &) {
        return "none known";
    }
}

} // namespace

std::string check_locale_name(std::string const & name) {
    try {
        QzLocale::createLocale(name);
        return {};
    } catch (i18n::QzLcInvLcName const &) {
        return "\"" + name + "\" is no locale name, such as ja_JP";
    }
}

locale_database find_database() {
    using state = locale_database::state;
    auto const name_of = [](i18n::ustring const & path) { return i18n::ustring_to_utf8(display_path(path)); };
    std::string const used = QzLcUtil::getDataPathNames()["xml_locale_database_path"];
    if (!used.empty()) {
        return {name_of(i18n::utf8_to_ustring(used)), state::whole};
    }
    auto const events = QzLcUtil::getEventLog();
    bool const was_begun = std::any_of(events.begin(), events.end(), [](std::string const & event) {
        return event.ends_with("invalid XML locale database.") ||
               event.ends_with("Failed to read the XML locale database.");
    });
    return {name_of(wanted_database().string()), was_begun ? state::in_part : state::missing};
}

std::vector<fact> describe_locale(QzLocale const & locale) {
    std::vector<fact> facts;
    for (category const which : categories) {
        facts.push_back(
            {QzLocale::getLcCategoryName(which), locale.getLcName(which), category_origin(locale, which)});
    }
    facts.push_back({"language", locale.getLanguage(category::ctype), {}});
    facts.push_back({"territory", locale.getTerritory(category::ctype), {}});
    facts.push_back({"encoding", locale.getEncoding(), encoding_origin(locale)});
    facts.push_back({"XPG name", locale.getXpgName(), {}});
    std::string chain;
    for (i18n::ustring const & name : i18n::get_fallback_locales(locale)) {
        chain += (chain.empty() ? "" : " > ") + i18n::ustring_to_utf8(name);
    }
    facts.push_back({"fallback chain", chain, "the messages locale, its language, the default"});
    for (auto const & [label, item] :
         {std::pair("terminal encoding", LcOptDataType::termencoding),
          std::pair("terminal input encoding", LcOptDataType::terminputencoding),
          std::pair("terminal output encoding", LcOptDataType::termoutputencoding)}) {
        std::string const encoding = std::get<std::string>(locale.getOptData(item));
        facts.push_back({label, encoding, terminal_origin(locale, encoding)});
    }
    facts.push_back({"paper size", paper(std::get<int>(locale.getOptData(LcOptDataType::papersize))),
                     "ICU's locale data"});
    facts.push_back({"Java encoding", java_encoding(locale), {}});
    return facts;
}

} // namespace fl::tool
