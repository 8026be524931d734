#include "platform/platform.hpp"
#include "platform/posix/native_text.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <mutex>
#include <optional>

namespace fl::platform {

namespace {

/// There is one environment here, which both views show. The C library does not protect it: the mutex keeps
/// this library's own threads apart.
class posix_environment final : public environment_access {
public:
    std::size_t get_system(char16_t const * name, char16_t * buffer, std::size_t size) const override {
        std::optional<std::u16string> const value = find(name);
        if (!value) {
            return 0;
        }
        if (value->size() >= size) {
            return value->size() + 1;
        }
        std::copy_n(value->c_str(), value->size() + 1, buffer);
        return value->size();
    }

    std::uint32_t set_system(char16_t const * name, char16_t const * value) override {
        if (set(name, value)) {
            return error::success;
        }
        return errno == ENOMEM ? error::not_enough_memory : error::access_denied;
    }

    std::size_t get_runtime_size(char16_t const * name) const override {
        std::optional<std::u16string> const value = find(name);
        return value ? value->size() + 1 : 0;
    }

    bool set_runtime(char16_t const * name, char16_t const * value) override {
        return set(name, *value == 0 ? nullptr : value);
    }

private:
    std::optional<std::u16string> find(char16_t const * name) const {
        std::string const bytes = to_native_bytes(name);
        // The C library would take the first "=" of the name for the end of a shorter one.
        if (bytes.find('=') != std::string::npos) {
            return std::nullopt;
        }
        std::lock_guard const lock(mutex_);
        char const * const value = ::getenv(bytes.c_str());
        return value ? std::optional(from_native_bytes(value)) : std::nullopt;
    }

    bool set(char16_t const * name, char16_t const * value) {
        std::string const name_bytes = to_native_bytes(name);
        std::string const value_bytes = value ? to_native_bytes(value) : std::string();
        std::lock_guard const lock(mutex_);
        return (value ? ::setenv(name_bytes.c_str(), value_bytes.c_str(), 1)
                      : ::unsetenv(name_bytes.c_str())) == 0;
    }

    mutable std::mutex mutex_;
};

constinit posix_environment environment;

} // namespace

environment_access & process_environment() {
    return environment;
}

} // namespace fl::platform
