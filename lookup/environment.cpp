#include "lookup/environment_rules.hpp"
#include "platform/platform.hpp"

#include <fl/i18n/environment.hpp>

namespace fl::i18n {

namespace {

/// Widens byte by byte with sign extension; no code page is consulted.
ustring widen(std::string const & name) {
    ustring result;
    result.reserve(name.size());
    for (char const c : name) {
        result += static_cast<char16_t>(static_cast<signed char>(c));
    }
    return result;
}

} // namespace

ustring getenv(ustring const & name) {
    return environment::get_variable(platform::process_environment(), name);
}

ustring getenv(std::string const & name) {
    return i18n::getenv(widen(name));
}

bool isenv(ustring const & name) {
    return environment::is_present(platform::process_environment(), name);
}

bool isenv(std::string const & name) {
    return i18n::isenv(widen(name));
}

int setenv(ustring const & name, ustring const & value, int overwrite, bool allow_empty) {
    return environment::set_variable(platform::process_environment(), name, value, overwrite, allow_empty);
}

int setenv(std::string const & name, ustring const & value, int overwrite, bool allow_empty) {
    return i18n::setenv(widen(name), value, overwrite, allow_empty);
}

int unsetenv(ustring const & name) {
    return environment::remove_variable(platform::process_environment(), name);
}

int unsetenv(std::string const & name) {
    return i18n::unsetenv(widen(name));
}

} // namespace fl::i18n
