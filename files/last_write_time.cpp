#include "files/path_text.hpp"
#include "foundation/filesystem/system_error.hpp"
#include "platform/platform.hpp"

#include <fl/filesystem/file.hpp>
#include <fl/i18n/date_time.hpp>

namespace fl::filesystem {

namespace {

using i18n::ustring;

[[noreturn]] void throw_invalid(char const * message, ustring const & path) {
    boost::throw_exception(InvalidArgument(message, path, {path}));
}

std::uint64_t file_time(boost::posix_time::ptime const & time, ustring const & path) {
    try {
        return i18n::date_time::ptime_to_filetime(time);
    } catch (i18n::date_time::date_time_exception_base const &) {
        throw_invalid("Time is not a file time", path);
    }
}

} // namespace

void last_write_time(upath const & path, boost::posix_time::ptime const & time) {
    last_write_time(path.string(), time);
}

void last_write_time(ustring const & path, boost::posix_time::ptime const & time) {
    last_write_time(path, time, codecvt_ustring_to_filesystem(false));
}

void last_write_time(ustring const & path, boost::posix_time::ptime const & time,
                     i18n::converter<wchar_t, char16_t> const & with) {
    if (path.empty()) {
        throw_invalid("Empty Path not permitted", path);
    }
    if (time.is_special()) {
        throw_invalid("Time is not a ptime", path);
    }
    std::uint64_t const new_time = file_time(time, path);
    std::wstring const native = make_native_access_form(detail::convert_path_text(path, with));
    // The system would read such a name up to the null character only, and date another file.
    bool const is_name = native.find(L'\0') == std::wstring::npos;
    std::uint32_t const code =
        is_name ? platform::set_last_write_time(native, new_time) : platform::error::invalid_name;
    if (code != platform::error::success) {
        detail::throw_system_error(code, path);
    }
}

} // namespace fl::filesystem
