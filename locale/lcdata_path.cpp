#include "locale/lcdata_path.hpp"

#include "foundation/ascii.hpp"

#include <algorithm>
#include <fl/i18n/environment.hpp>

namespace fl::i18n::lcmgmt {

namespace {

constexpr char event_source[] = "get_lcdata_path";
constexpr char path_variable[] = "QZLOCALE_LCDATA_PATH";
constexpr char file_name_variable[] = "QZLOCALE_LCDATA_FILENAME";

ustring value_of(environment_snapshot const & environment, char const * name) {
    auto const found = environment.find(name);
    return found != environment.end() ? found->second : ustring();
}

} // namespace

environment_snapshot read_environment() {
    environment_snapshot environment;
    for (char const * const name :
         {path_variable, file_name_variable, "QZLOCALE_L10N_CONTROL", "QZLOCALE_TERMINAL_ENCODING"}) {
        environment.emplace(name, i18n::getenv(std::string(name)));
    }
    return environment;
}

filesystem::upath get_lcdata_path(environment_snapshot const & environment,
                                  filesystem::upath const & install_path, event_log & log) {
    filesystem::upath directory;
    if (ustring const path = value_of(environment, path_variable); !path.empty()) {
        log.add(event_source, "XML locale data path was retrieved from QZLOCALE_LCDATA_PATH.");
        directory = filesystem::upath(filesystem::make_native_form(filesystem::upath(path), true));
    } else if (install_path.empty()) {
        log.add_error(event_source, "Failed to get the install path", -1);
        return {};
    } else {
        directory = install_path / filesystem::upath(u"bin");
    }
    ustring file_name = value_of(environment, file_name_variable);
    if (!file_name.empty()) {
        log.add(event_source, "XML locale data file name was retrieved from QZLOCALE_LCDATA_FILENAME.");
    } else {
        file_name = u"lcdata.xml";
    }
    return directory / filesystem::upath(file_name);
}

int read_l10n_control(ustring const & value) {
    auto const is = [&](std::u16string_view word) {
        return std::equal(value.begin(), value.end(), word.begin(), word.end(),
                          [](char16_t a, char16_t b) { return ascii::to_lower(a) == b; });
    };
    return is(u"on") ? 1 : is(u"off") ? 2 : 0;
}

} // namespace fl::i18n::lcmgmt
