#include "platform/platform.hpp"
#include "platform/posix/native_text.hpp"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fl::platform {

namespace {

/// Returns the stream, or closes that of a directory, or of what may be one: here the C library opens one for
/// reading.
std::FILE * refuse_directory(std::FILE * stream) {
    struct stat information;
    if (!stream) {
        return nullptr;
    }
    int const code = ::fstat(::fileno(stream), &information) != 0 ? errno
                     : S_ISDIR(information.st_mode)               ? EISDIR
                                                                  : 0;
    if (code == 0) {
        return stream;
    }
    std::fclose(stream);
    errno = code;
    return nullptr;
}

} // namespace

std::FILE * open_stream(std::wstring const & native_path, std::string const & mode) {
    return refuse_directory(std::fopen(path_bytes(native_path).c_str(), mode.c_str()));
}

std::FILE * reopen_stream(std::wstring const & native_path, std::string const & mode, std::FILE * stream) {
    return refuse_directory(std::freopen(path_bytes(native_path).c_str(), mode.c_str(), stream));
}

std::FILE * create_exclusively(std::wstring const & native_path) {
    std::string const path = path_bytes(native_path);
    int const descriptor = ::open(path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0600);
    if (descriptor < 0) {
        return nullptr;
    }
    std::FILE * const stream = ::fdopen(descriptor, "wb+");
    if (!stream) {
        int const code = errno;
        ::close(descriptor);
        ::unlink(path.c_str());
        errno = code;
    }
    return stream;
}

} // namespace fl::platform
