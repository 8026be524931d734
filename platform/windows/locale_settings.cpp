#include "platform/platform.hpp"

#include <algorithm>
#include <array>
#include <windows.h>

namespace fl::platform {

namespace {

/// Names of locales, time zones and formats; what is not ASCII becomes UTF-8.
std::string narrow(wchar_t const * text) {
    int const size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(std::max(size, 1)), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, result.data(), size, nullptr, nullptr);
    result.pop_back();
    return result;
}

std::string name_of(LCID locale) {
    std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> name{};
    return LCIDToLocaleName(locale, name.data(), static_cast<int>(name.size()), 0) > 0 ? narrow(name.data())
                                                                                       : std::string();
}

std::string information(LCTYPE item) {
    std::array<wchar_t, 256> text{};
    return GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, item, text.data(), static_cast<int>(text.size())) > 0
               ? narrow(text.data())
               : std::string();
}

std::string time_zone() {
    DYNAMIC_TIME_ZONE_INFORMATION zone{};
    return GetDynamicTimeZoneInformation(&zone) != TIME_ZONE_ID_INVALID ? narrow(zone.TimeZoneKeyName)
                                                                        : std::string();
}

} // namespace

locale_settings query_locale_settings() {
    std::string const user = name_of(GetUserDefaultLCID());
    std::string const interface_language = name_of(MAKELCID(GetUserDefaultUILanguage(), SORT_DEFAULT));

    locale_settings settings;
    std::string const system = name_of(GetSystemDefaultLCID());
    settings.category_names.fill({user, system});
    settings.category_names.back() = {interface_language, user, system};
    settings.ansi_code_page = GetACP();
    settings.terminal_input_code_page = GetConsoleCP();
    settings.terminal_output_code_page = GetConsoleOutputCP();
    settings.details = {
        {"user_locale", user},
        {"system_locale", system},
        {"thread_locale", name_of(GetThreadLocale())},
        {"user_interface_language", interface_language},
        {"ansi_code_page", std::to_string(settings.ansi_code_page)},
        {"terminal_input_code_page", std::to_string(settings.terminal_input_code_page)},
        {"terminal_output_code_page", std::to_string(settings.terminal_output_code_page)},
        {"decimal_separator", information(LOCALE_SDECIMAL)},
        {"thousands_separator", information(LOCALE_STHOUSAND)},
        {"list_separator", information(LOCALE_SLIST)},
        {"currency_symbol", information(LOCALE_SCURRENCY)},
        {"short_date_format", information(LOCALE_SSHORTDATE)},
        {"long_date_format", information(LOCALE_SLONGDATE)},
        {"time_format", information(LOCALE_STIMEFORMAT)},
        {"time_zone", time_zone()},
    };
    return settings;
}

} // namespace fl::platform
