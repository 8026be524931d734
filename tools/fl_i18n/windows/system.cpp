#include "tools/fl_i18n/system.hpp"

#include <windows.h>
// After <windows.h>, which it needs.
#include <winternl.h>

namespace fl::tool {

std::string system_version() {
    // The documented function tells programs an older version than the system's own.
    using get_version = LONG(WINAPI *)(PRTL_OSVERSIONINFOW);
    HMODULE const system = GetModuleHandleW(L"ntdll.dll");
    auto const function =
        system != nullptr
            ? reinterpret_cast<get_version>(reinterpret_cast<void *>(GetProcAddress(system, "RtlGetVersion")))
            : nullptr;
    RTL_OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (function == nullptr || function(&version) != 0) {
        return {};
    }
    return "Windows " + std::to_string(version.dwMajorVersion) + "." +
           std::to_string(version.dwMinorVersion) + "." + std::to_string(version.dwBuildNumber);
}

} // namespace fl::tool
