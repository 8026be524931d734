#include "platform/platform.hpp"

#include <windows.h>

namespace fl::platform {

namespace {

/// Whatever frees the library, it stays loaded: objects of the process are never destroyed, exceptions and
/// catalogs of callers hold its code, and threads may run in it. Elsewhere the linker's "nodelete" says so.
[[maybe_unused]] bool const stays_loaded = [] {
    static char const here = 0;
    HMODULE module = nullptr;
    return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                              reinterpret_cast<wchar_t const *>(&here), &module) != 0;
}();

} // namespace

std::wstring module_path(void const * address) {
    HMODULE module = nullptr;
    // The system takes a null address for the program's.
    if (!address || !GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                            GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                                        static_cast<wchar_t const *>(address), &module)) {
        return {};
    }
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        // A path that does not fit is cut to the buffer.
        DWORD const length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

} // namespace fl::platform
