#include "platform/platform.hpp"

#include <share.h>
#include <windows.h>

namespace fl::platform {

namespace {

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
