#include "lookup/environment_rules.hpp"

#include <array>
#include <cerrno>

namespace fl::i18n::environment {

namespace {

/// Where a variable is present.
struct presence {
    bool runtime;
    bool system;

    presence(platform::environment_access const & access, ustring const & name)
        : runtime(access.get_runtime_size(name.c_str()) > 0)
        , system(access.get_system(name.c_str(), nullptr, 0) > 0) {}

    bool any() const { return runtime || system; }
};

int refuse() {
    errno = EINVAL;
    return -1;
}

bool holds_null(ustring const & text) {
    return text.find(u'\0') != ustring::npos;
}

bool is_refused_name(ustring const & name) {
    return name.empty() || holds_null(name);
}

bool can_be_changed(ustring const & name) {
    return !is_refused_name(name) && name.find(u'=') == ustring::npos;
}

/// Sets a variable in the system's environment, or removes it when `value` is null.
int set_in_system(platform::environment_access & access, ustring const & name, char16_t const * value) {
    namespace error = platform::error;
    switch (access.set_system(name.c_str(), value)) {
    case error::success:
        return 0;
    case error::not_enough_memory:
    case error::out_of_memory:
        errno = ENOMEM;
        return -1;
    case error::name_too_long:
        errno = ENAMETOOLONG;
        return -1;
    default:
        errno = EACCES;
        return -1;
    }
}

int set_in_runtime(platform::environment_access & access, ustring const & name, char16_t const * value) {
    return access.set_runtime(name.c_str(), value) ? 0 : -1;
}

/// Removes a variable that is present.
int remove_present(platform::environment_access & access, ustring const & name, presence const & present) {
    errno = 0;
    return present.runtime ? set_in_runtime(access, name, u"") : set_in_system(access, name, nullptr);
}

} // namespace

ustring get_variable(platform::environment_access const & access, ustring const & name) {
    if (is_refused_name(name)) {
        refuse();
        return {};
    }
    std::array<char16_t, 256> buffer;
    std::size_t length = access.get_system(name.c_str(), buffer.data(), buffer.size());
    if (length < buffer.size()) {
        return {buffer.data(), length};
    }
    ustring value;
    do { // again when another thread has made the value longer meanwhile
        value.resize(length);
        length = access.get_system(name.c_str(), value.data(), value.size());
    } while (length >= value.size());
    value.resize(length);
    return value;
}

bool is_present(platform::environment_access const & access, ustring const & name) {
    if (is_refused_name(name)) {
        refuse();
        return false;
    }
    return presence(access, name).any();
}

int set_variable(platform::environment_access & access, ustring const & name, ustring const & value,
                 int overwrite, bool allow_empty) {
    bool const is_bad_value = holds_null(value) || (value.empty() && !allow_empty);
    if (is_bad_value || !can_be_changed(name)) {
        return refuse();
    }
    presence const present(access, name);
    if (present.any() && overwrite == 0) {
        errno = 0;
        return 0;
    }
    if (present.any() && value.empty()) {
        return remove_present(access, name, present);
    }
    errno = 0;
    return present.system && !present.runtime ? set_in_system(access, name, value.c_str())
                                              : set_in_runtime(access, name, value.c_str());
}

int remove_variable(platform::environment_access & access, ustring const & name) {
    if (!can_be_changed(name)) {
        return refuse();
    }
    presence const present(access, name);
    if (!present.any()) {
        errno = 0;
        return 0;
    }
    return remove_present(access, name, present);
}

} // namespace fl::i18n::environment
