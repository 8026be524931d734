#include "platform/platform.hpp"
#include "platform/posix/native_text.hpp"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace fl::platform {

namespace {

std::uint32_t error_code(int errno_value) {
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
    case ELOOP:
        return error::cannot_access_file;
    default:
        return general_failure;
    }
}

std::string path_bytes(std::wstring const & native_path) {
    std::string bytes = to_native_bytes(std::u16string(native_path.begin(), native_path.end()));
    std::replace(bytes.begin(), bytes.end(), '\\', '/');
    return bytes;
}

} // namespace

std::wstring native_path_from_bytes(std::string_view bytes) {
    std::u16string const text = from_native_bytes(bytes);
    std::wstring path(text.begin(), text.end());
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return path;
}

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
    return native_path_from_bytes(buffer.c_str());
}

bool root_is_absolute() {
    return true;
}

} // namespace fl::platform
