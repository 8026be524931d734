#pragma once

#include <cstddef>
#include <cstdint>
#include <fl/filesystem/path.hpp>
#include <string>
#ifdef _WIN32
#include <windows.h>
#else
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#endif

/// What only the system itself tells a test.
namespace fl::test {

#ifdef _WIN32

/// Returns the number of handles that this process has open, those of streams among them.
inline std::size_t count_open_handles() {
    std::size_t count = 0;
    for (std::uintptr_t value = 4; value < 0x800; value += 4) {
        DWORD flags = 0;
        count += GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) != 0;
    }
    return count;
}

/// Sets an environment variable to the empty text, in the system's own way.
inline void set_empty_variable(char const * name) {
    SetEnvironmentVariableA(name, "");
}

/// Does nothing: the user who may write everywhere is one of POSIX.
inline bool become_ordinary_user() {
    return true;
}

/// Returns the time of the last write in 100-nanosecond intervals since 1601; 0 when it cannot be told.
inline std::uint64_t last_write_file_time(filesystem::upath const & path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExW(filesystem::make_native_access_form(path).c_str(), GetFileExInfoStandard, &data);
    return std::uint64_t{data.ftLastWriteTime.dwHighDateTime} << 32 | data.ftLastWriteTime.dwLowDateTime;
}

#else

inline std::size_t count_open_handles() {
    std::filesystem::directory_iterator const entries("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

inline void set_empty_variable(char const * name) {
    ::setenv(name, "", 1);
}

/// Makes the system check access as for a user without special rights, where this process has them.
inline bool become_ordinary_user() {
    constexpr uid_t nobody = 65534;
    return ::getuid() != 0 || ::setreuid(nobody, ::geteuid()) == 0;
}

inline std::uint64_t last_write_file_time(filesystem::upath const & path) {
    std::u16string text = path.string();
    std::replace(text.begin(), text.end(), u'\\', u'/');
    struct stat data {};
    ::stat(std::filesystem::path(text).c_str(), &data);
    return static_cast<std::uint64_t>((data.st_mtim.tv_sec + 11'644'473'600) * 10'000'000 +
                                      data.st_mtim.tv_nsec / 100);
}

#endif

} // namespace fl::test
