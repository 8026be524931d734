#include "platform/platform.hpp"
#include "platform/posix/native_text.hpp"

#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace fl::platform {

namespace {

// In the order of the categories.
constexpr std::array<std::u16string_view, 6> category_variables{
    u"LC_CTYPE", u"LC_COLLATE", u"LC_TIME", u"LC_NUMERIC", u"LC_MONETARY", u"LC_MESSAGES"};

std::string variable(std::u16string_view name) {
    environment_access const & environment = process_environment();
    std::u16string value;
    for (std::size_t needed = environment.get_system(name.data(), nullptr, 0); needed > value.size();
         needed = environment.get_system(name.data(), value.data(), value.size())) {
        value.resize(needed);
    }
    return to_native_bytes(value.c_str());
}

/// Returns the name of the time zone: from TZ, else from where the system's own setting points.
std::string time_zone() {
    if (std::string const named = variable(u"TZ"); !named.empty()) {
        return named;
    }
    std::error_code failure;
    std::string const target = std::filesystem::read_symlink("/etc/localtime", failure).string();
    constexpr std::string_view folder = "zoneinfo/";
    std::size_t const found = target.find(folder);
    return found == std::string::npos ? std::string() : target.substr(found + folder.size());
}

} // namespace

locale_settings query_locale_settings() {
    locale_settings settings;
    std::string const all = variable(u"LC_ALL");
    std::string const fallback = variable(u"LANG");
    for (std::size_t i = 0; i < category_variables.size(); ++i) {
        std::string const own = variable(category_variables[i]);
        for (std::string const & name : {all, own, fallback}) {
            if (!name.empty()) {
                settings.category_names[i].push_back(name);
            }
        }
        settings.details[to_native_bytes(category_variables[i])] = own;
    }
    settings.details["LC_ALL"] = all;
    settings.details["LANG"] = fallback;
    settings.details["time_zone"] = time_zone();
    return settings;
}

} // namespace fl::platform
