// The very first use of the library, by eight threads at once, each with another subject. A process has only
// one such moment, so a script starts many: first_use NUMBER [MODULE]. The number turns the order of the
// subjects. A module, if given, is loaded meanwhile and uses the library where it initialises itself.
#include "tests/support/shared_module.hpp"
#include "tests/support/together.hpp"

#include <array>
#include <filesystem>
#include <fl/filesystem/file.hpp>
#include <fl/filesystem/path.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ctype.hpp>
#include <fl/i18n/environment.hpp>
#include <fl/i18n/fallback_locales.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/locale_status.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <fl/i18n/resource_finder.hpp>
#include <fl/i18n/ustring.hpp>
#include <string>
#include <vector>

namespace fl {
namespace {

using namespace i18n;

bool looks_up(unsigned number) {
    // Half of the processes leave the roots to the first lookup.
    if (number % 2 == 0) {
        MessageCatalog::MessageCatalogInit(filesystem::get_install_path().string());
    }
    MessageID const id(std::string("fl:i18n:QzLcInvLcArgument"));
    return MessageCatalog::get_message(id, *QzLocale::createLocale("ja_JP")) == u"引数が無効です。" &&
           MessageCatalog::get_message(id, QzLocale::classic()) == u"Invalid argument.";
}

bool starts_locales(unsigned) {
    initLcMgmtSystem();
    auto const events = QzLcUtil::getEventLog();
    return QzLcUtil::getLcStatus() == LcStatusInitialized && events.size() > 2 &&
           events.front() == "QzLocaleCtx::initQzLcCtx - Locale context was initialized." &&
           QzLocale::classic().getXpgName() == "en_US_POSIX.UTF-8" &&
           QzLocale::global() == QzLocale::system();
}

bool converts(unsigned) {
    codecvt_string_to_ustring from_euc("EUC-JP", false);
    codecvt_ustring_to_string to_ascii(call_back_stop, "US-ASCII", "");
    auto const terminal = create_codecvt_terminal_to_ustring();
    return from_euc.convert("\xA4\xA2") == u"\u3042" && to_ascii.convert(u"b") == "b" &&
           to_ustring("a", *terminal) == u"a" && get_standard_encoding_name("cp1252") == "windows-1252";
}

bool falls_back(unsigned) {
    return get_fallback_locales(*QzLocale::createLocale("de_AT")) ==
           std::vector<ustring>{u"de_AT", u"de", u"en_US_POSIX"};
}

bool maps_characters(unsigned) {
    auto const turkish = QzLocale::createLocale("tr_TR");
    return transform(u"i", to_upper_locale(*turkish)) == u"\u0130" &&
           transform(u"e\u0301", normalization_form::compose) == u"\u00E9" &&
           lcctype::toupper(U'\u00E4') == U'\u00C4';
}

/// Wine's C runtime does not lock its environment as that of Windows does, and ICU reads it at its first use.
constexpr bool may_set_environment = std::filesystem::path::preferred_separator == '/';

bool uses_environment(unsigned) {
    ustring const name = u"FL_I18N_\u00C4";
    if (!may_set_environment) {
        return isenv(u"PATH") && !getenv(u"PATH").empty() && !isenv(name);
    }
    return setenv(name, u"\u3042", 1, false) == 0 && getenv(name) == u"\u3042" && unsetenv(name) == 0 &&
           !isenv(name);
}

bool finds_files(unsigned) {
    auto const found =
        resource_finder::find_resource({filesystem::get_install_path()}, u"resources\\fl\\%S\\i18n.xml",
                                       *QzLocale::createLocale("pt_BR"), true);
    return found == filesystem::get_install_path() / u"resources\\fl\\pt_BR\\i18n.xml" &&
           !filesystem::tmpnam({}, u"a", u"b").empty();
}

bool formats(unsigned) {
    return MessageCatalog::GetFormattedMessage(u"{0,number,#,##0.00} {1} {2}",
                                               {1234.5, std::string("a"), 0.5}) == u"1,234.50 a 0.5000";
}

struct subject {
    char const * name;
    bool (*has_allowed_answers)(unsigned number);
};

constexpr std::array<subject, 8> subjects{{{"look-up", looks_up},
                                           {"locales", starts_locales},
                                           {"converters", converts},
                                           {"fallback", falls_back},
                                           {"characters", maps_characters},
                                           {"environment", uses_environment},
                                           {"files", finds_files},
                                           {"formatting", formats}}};

} // namespace
} // namespace fl

int main(int count, char ** arguments) {
    unsigned const number = count > 1 ? static_cast<unsigned>(std::stoul(arguments[1])) : 0;
    fl::test::wrong_answers wrong;
    std::size_t const more = count > 2 ? 1 : 0;
    fl::test::run_together(fl::subjects.size() + more, [&](std::size_t i) {
        if (i == fl::subjects.size()) {
            wrong.look_at("module",
                          [&] { return fl::test::shared_module(arguments[2]).call("uses_library") == 1; });
            return;
        }
        auto const & subject = fl::subjects[(i + number) % fl::subjects.size()];
        wrong.look_at(subject.name, [&] { return subject.has_allowed_answers(number); });
    });
    return wrong.count() == 0 ? 0 : 1;
}
