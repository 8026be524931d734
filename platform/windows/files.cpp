#include "platform/platform.hpp"

#include <cerrno>
#include <io.h>
#include <share.h>
#include <windows.h>

namespace fl::platform {

namespace {

struct handle_closer {
    void operator()(void * handle) const noexcept { CloseHandle(handle); }
};

/// Asks a file's directory for it, which works while the file itself is locked.
std::uint32_t query_directory_entry(std::wstring const & native_path, DWORD & attributes) {
    WIN32_FIND_DATAW data;
    HANDLE const search =
        FindFirstFileExW(native_path.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0);
    if (search == INVALID_HANDLE_VALUE) {
        return GetLastError();
    }
    FindClose(search);
    attributes = data.dwFileAttributes;
    return error::success;
}

std::uint32_t query_attributes(std::wstring const & native_path, DWORD & attributes) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (GetFileAttributesExW(native_path.c_str(), GetFileExInfoStandard, &data)) {
        attributes = data.dwFileAttributes;
        return error::success;
    }
    DWORD const code = GetLastError();
    return code == ERROR_SHARING_VIOLATION ? query_directory_entry(native_path, attributes) : code;
}

} // namespace

std::uint32_t query_file(std::wstring const & native_path, file_attributes & attributes) {
    DWORD flags = 0;
    std::uint32_t const code = query_attributes(native_path, flags);
    if (code == error::success) {
        attributes.is_directory = (flags & FILE_ATTRIBUTE_DIRECTORY) != 0;
    }
    return code;
}

file_handle open_for_reading(std::wstring const & native_path) {
    return file_handle(_wfsopen(native_path.c_str(), L"rb", _SH_DENYNO));
}

int query_writability(std::wstring const & native_path) {
    constexpr int read_and_write = 6;
    return _waccess(native_path.c_str(), read_and_write) == 0 ? 0 : errno;
}

std::uint32_t set_last_write_time(std::wstring const & native_path, std::uint64_t file_time) {
    constexpr DWORD share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    // With the backup flag the system opens directories too.
    HANDLE const opened = CreateFileW(native_path.c_str(), FILE_GENERIC_WRITE, share_all, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (opened == INVALID_HANDLE_VALUE) {
        return GetLastError();
    }
    std::unique_ptr<void, handle_closer> const file(opened);
    FILETIME const time{static_cast<DWORD>(file_time), static_cast<DWORD>(file_time >> 32)};
    return SetFileTime(file.get(), nullptr, nullptr, &time) ? error::success : GetLastError();
}

std::wstring system_temporary_directory() {
    std::wstring path(MAX_PATH, L'\0');
    UINT length = GetWindowsDirectoryW(path.data(), MAX_PATH);
    if (length >= path.size()) {
        path.resize(length);
        length = GetWindowsDirectoryW(path.data(), length);
    }
    if (length == 0 || length >= path.size()) {
        return {};
    }
    path.resize(length);
    return path + (path.back() == L'\\' ? L"Temp" : L"\\Temp");
}

bool names_ignore_case() {
    return true;
}

std::wstring current_directory(wchar_t drive) {
    wchar_t const name[] = {drive == 0 ? L'.' : drive, drive == 0 ? L'\0' : L':', L'\0'};
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = GetFullPathNameW(name, MAX_PATH, path.data(), nullptr);
    // Another thread may change to a longer one between two calls.
    while (length >= path.size()) {
        path.resize(length);
        length = GetFullPathNameW(name, length, path.data(), nullptr);
    }
    path.resize(length);
    return path;
}

bool root_is_absolute() {
    return false;
}

} // namespace fl::platform
