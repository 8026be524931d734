#include "files/open_stream.hpp"

#include "files/path_text.hpp"
#include "foundation/filesystem/native_form.hpp"
#include "platform/platform.hpp"

#include <algorithm>
#include <cerrno>
#include <fl/filesystem/file.hpp>
#include <fl/filesystem/path.hpp>

namespace fl::filesystem {

namespace detail {

namespace {

/// The length from which on a name that is not found is one too long; the prefix that its long form would add
/// does not count.
constexpr std::size_t name_limit = 32768;

std::FILE * fail(int code) {
    errno = code;
    return nullptr;
}

/// Returns the code for which the name and the mode as given are refused; 0 when they are not.
int refusal(i18n::ustring const & name, std::string const & mode) {
    if (name.empty() || name.front() == u'\0' || mode.empty()) {
        return EINVAL;
    }
    return name.back() == upath_constant::PATHNAME_SEPARATOR_CHARACTER ? EISDIR : 0;
}

bool is_ascii_text(std::string const & mode) {
    return std::all_of(mode.begin(), mode.end(), [](unsigned char c) { return c > 0 && c < 0x80; });
}

/// A null character would end the name for the system, which then opens another file.
bool can_be_a_name(std::wstring const & native) {
    return !native.empty() && native.find(L'\0') == std::wstring::npos;
}

int not_found_code(std::wstring const & native) {
    return native.size() < name_limit ? ENOENT : ENAMETOOLONG;
}

} // namespace

std::FILE * open_stream(i18n::ustring const & name, i18n::converter<wchar_t, char16_t> const & with,
                        std::string const & mode, stream_opener const & open) {
    errno = 0;
    if (int const code = refusal(name, mode)) {
        return fail(code);
    }
    std::wstring const native = make_native_form(convert_path_text(name, with), true);
    if (!can_be_a_name(native) || !is_ascii_text(mode)) {
        return fail(EINVAL);
    }
    std::wstring path;
    try {
        path = make_file_form(native);
    } catch (PathNotFound const &) {
        return fail(not_found_code(native));
    }
    std::FILE * const stream = open(path);
    if (!stream && errno == ENOENT) {
        errno = not_found_code(native);
    }
    return stream;
}

} // namespace detail

std::FILE * fopen(upath const & path, std::string const & mode) {
    return fopen(path.string(), mode);
}

std::FILE * fopen(i18n::ustring const & path, std::string const & mode) {
    return fopen(path, mode, codecvt_ustring_to_filesystem(false));
}

std::FILE * fopen(i18n::ustring const & path, std::string const & mode,
                  i18n::converter<wchar_t, char16_t> const & with) {
    return detail::open_stream(path, with, mode, [&](std::wstring const & native_path) {
        return platform::open_stream(native_path, mode);
    });
}

std::FILE * freopen(upath const & path, std::string const & mode, std::FILE * stream) {
    return freopen(path.string(), mode, stream);
}

std::FILE * freopen(i18n::ustring const & path, std::string const & mode, std::FILE * stream) {
    return freopen(path, mode, stream, codecvt_ustring_to_filesystem(false));
}

std::FILE * freopen(i18n::ustring const & path, std::string const & mode, std::FILE * stream,
                    i18n::converter<wchar_t, char16_t> const & with) {
    return detail::open_stream(path, with, mode, [&](std::wstring const & native_path) -> std::FILE * {
        if (!stream) {
            errno = EINVAL;
            return nullptr;
        }
        return platform::reopen_stream(native_path, mode, stream);
    });
}

} // namespace fl::filesystem
