#include "platform/platform.hpp"
#include "platform/posix/native_text.hpp"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fl::platform {

namespace {

std::uint32_t error_code(int errno_value) {
    constexpr std::uint32_t write_protect = 19;
    constexpr std::uint32_t general_failure = 31;
    switch (errno_value) {
    case ENOENT:
        return error::file_not_found;
    case ENOTDIR:
        return error::path_not_found;
    case EACCES:
    case EPERM:
        return error::access_denied;
    case ENOMEM:
        return error::not_enough_memory;
    case EINVAL:
    case EILSEQ:
        return error::invalid_name;
    case ENAMETOOLONG:
        return error::name_too_long;
    case EROFS:
        return write_protect;
    case ELOOP:
        return error::cannot_access_file;
    default:
        return general_failure;
    }
}

} // namespace

std::uint32_t query_file(std::wstring const & native_path, file_attributes & attributes) {
    struct stat information;
    if (::stat(path_bytes(native_path).c_str(), &information) != 0) {
        return error_code(errno);
    }
    attributes.is_directory = S_ISDIR(information.st_mode);
    return error::success;
}

file_handle open_for_reading(std::wstring const & native_path) {
    return file_handle(std::fopen(path_bytes(native_path).c_str(), "rb"));
}

int query_writability(std::wstring const & native_path) {
    return ::access(path_bytes(native_path).c_str(), R_OK | W_OK) == 0 ? 0 : errno;
}

std::uint32_t set_last_write_time(std::wstring const & native_path, std::uint64_t file_time) {
    constexpr std::uint64_t intervals_per_second = 10'000'000;
    constexpr std::int64_t seconds_from_1601_to_1970 = 11'644'473'600;
    timespec times[2] = {};
    times[0].tv_nsec = UTIME_OMIT;
    times[1].tv_sec = static_cast<std::int64_t>(file_time / intervals_per_second) - seconds_from_1601_to_1970;
    times[1].tv_nsec = static_cast<long>(file_time % intervals_per_second) * 100;
    bool const is_set = ::utimensat(AT_FDCWD, path_bytes(native_path).c_str(), times, 0) == 0;
    return is_set ? error::success : error_code(errno);
}

std::wstring system_temporary_directory() {
    return L"\\tmp";
}

bool names_ignore_case() {
    return false;
}

std::wstring current_directory(wchar_t drive) {
    if (drive != 0) {
        return {};
    }
    std::string buffer(256, '\0');
    while (!::getcwd(buffer.data(), buffer.size())) {
        if (errno != ERANGE) {
            return {};
        }
        buffer.resize(buffer.size() * 2);
    }
    buffer.resize(buffer.find('\0'));
    std::wstring const path = native_path_from_bytes(buffer);
    // A directory whose name is no text in UTF-8, or has a backslash, is reached through the system's link to
    // it.
    return path_bytes(path) == buffer ? path : L"\\proc\\self\\cwd";
}

bool root_is_absolute() {
    return true;
}

} // namespace fl::platform
