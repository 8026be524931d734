#include "files/temporary_files.hpp"

#include "files/open_stream.hpp"
#include "platform/platform.hpp"

#include <boost/filesystem/operations.hpp>
#include <cerrno>
#include <fl/filesystem/file.hpp>

namespace fl::filesystem {

using i18n::ustring;

namespace detail {

std::FILE * create_under_new_name(ustring & name, name_source const & make_name,
                                  file_creator const & create) {
    constexpr int attempts = 11;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        ustring candidate = make_name();
        if (candidate.empty()) {
            errno = EIO;
            break;
        }
        if (std::FILE * const stream = create(candidate)) {
            name = std::move(candidate);
            return stream;
        }
    }
    name.clear();
    return nullptr;
}

} // namespace detail

namespace {

/// Returns 19 characters that nobody can foresee; empty when the system gives no random bytes.
ustring unique_part() {
    boost::system::error_code failed;
    auto const part = boost::filesystem::unique_path("%%%%-%%%%-%%%%-%%%%", failed);
    return failed ? ustring() : to_ustring(part);
}

ustring unique_name(ustring directory, ustring const & prefix, ustring const & suffix) {
    ustring const part = unique_part();
    if (part.empty()) {
        return {};
    }
    if (directory.back() != upath_constant::PATHNAME_SEPARATOR_CHARACTER) {
        directory += upath_constant::PATHNAME_SEPARATOR_CHARACTER;
    }
    bool const needs_dot = !suffix.empty() && suffix.front() != u'.';
    return directory + prefix + part + (needs_dot ? u"." : u"") + suffix;
}

std::FILE * create_exclusively(ustring const & name) {
    // Only the creation of a file that is not there keeps others from choosing the file.
    return detail::open_stream(name, codecvt_ustring_to_filesystem(false), "wb+",
                               platform::create_exclusively);
}

} // namespace

ustring tmpnam(ustring const & directory, ustring const & prefix, ustring const & suffix) {
    return unique_name(directory.empty() ? temp_directory_name() : directory, prefix, suffix);
}

std::FILE * tmpfile(ustring & name, ustring const & directory, ustring const & prefix,
                    ustring const & suffix) {
    ustring const place = directory.empty() ? temp_directory_name() : directory;
    return detail::create_under_new_name(
        name, [&] { return unique_name(place, prefix, suffix); }, create_exclusively);
}

} // namespace fl::filesystem
