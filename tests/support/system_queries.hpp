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

/// In 100-nanosecond intervals since 1601.
struct file_times {
    std::uint64_t access;
    std::uint64_t write;
};

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

/// Returns the times of a file; 0 when they cannot be told.
inline file_times file_times_of(filesystem::upath const & path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExW(filesystem::make_native_access_form(path).c_str(), GetFileExInfoStandard, &data);
    auto const number = [](FILETIME const & time) {
        return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    };
    return {number(data.ftLastAccessTime), number(data.ftLastWriteTime)};
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

inline file_times file_times_of(filesystem::upath const & path) {
    std::u16string text = path.string();
    std::replace(text.begin(), text.end(), u'\\', u'/');
    struct stat data {};
    ::stat(std::filesystem::path(text).c_str(), &data);
    auto const number = [](timespec const & time) {
        return static_cast<std::uint64_t>((time.tv_sec + 11'644'473'600) * 10'000'000 + time.tv_nsec / 100);
    };
    return {number(data.st_atim), number(data.st_mtim)};
}

#endif

} // namespace fl::test
