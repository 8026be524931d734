#include "platform/platform.hpp"

#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

namespace fl::platform {

namespace {

std::wstring widen(std::string const & mode) {
    return {mode.begin(), mode.end()};
}

} // namespace

std::FILE * open_stream(std::wstring const & native_path, std::string const & mode) {
    return _wfopen(native_path.c_str(), widen(mode).c_str());
}

std::FILE * reopen_stream(std::wstring const & native_path, std::string const & mode, std::FILE * stream) {
    return _wfreopen(native_path.c_str(), widen(mode).c_str(), stream);
}

std::FILE * create_exclusively(std::wstring const & native_path) {
    int descriptor = -1;
    if (_wsopen_s(&descriptor, native_path.c_str(), _O_CREAT | _O_EXCL | _O_RDWR | _O_BINARY, _SH_DENYNO,
                  _S_IREAD | _S_IWRITE) != 0) {
        return nullptr;
    }
    std::FILE * const stream = _wfdopen(descriptor, L"wb+");
    if (!stream) {
        int const code = errno;
        _close(descriptor);
        _wunlink(native_path.c_str());
        errno = code;
    }
    return stream;
}

} // namespace fl::platform
