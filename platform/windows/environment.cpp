#include "platform/platform.hpp"

#include <cerrno>
#include <cstdlib>
#include <windows.h>

namespace fl::platform {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

namespace {

wchar_t const * wide(char16_t const * text) {
    return reinterpret_cast<wchar_t const *>(text);
}

class windows_environment final : public environment_access {
public:
    std::size_t get_system(char16_t const * name, char16_t * buffer, std::size_t size) const override {
        return GetEnvironmentVariableW(wide(name), reinterpret_cast<wchar_t *>(buffer),
                                       static_cast<DWORD>(size));
    }

    std::uint32_t set_system(char16_t const * name, char16_t const * value) override {
        return SetEnvironmentVariableW(wide(name), wide(value)) ? error::success : GetLastError();
    }

    std::size_t get_runtime_size(char16_t const * name) const override {
        // The reported size tells; the result of a query without a buffer differs between runtimes, and so
        // does what it leaves in errno.
        int const saved_errno = errno;
        std::size_t size = 0;
        _wgetenv_s(&size, nullptr, 0, wide(name));
        errno = saved_errno;
        return size;
    }

    bool set_runtime(char16_t const * name, char16_t const * value) override {
        return _wputenv_s(wide(name), wide(value)) == 0;
    }
};

constinit windows_environment environment;

} // namespace

environment_access & process_environment() {
    return environment;
}

} // namespace fl::platform
