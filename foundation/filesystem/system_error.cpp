#include "foundation/filesystem/system_error.hpp"

#include "foundation/filesystem/native_form.hpp"
#include "platform/platform.hpp"

#include <boost/throw_exception.hpp>
#include <fl/filesystem/exceptions.hpp>
#include <string>
#include <vector>

namespace fl::filesystem::detail {

namespace {

using i18n::ustring;
namespace error = platform::error;

[[noreturn]] void throw_path_not_found(ustring const & path, ustring const & second_path) {
    ustring const & longer = second_path.size() > path.size() ? second_path : path;
    if (longer.size() > longest_path) {
        boost::throw_exception(FileNameTooLarge(longer));
    }
    boost::throw_exception(PathNotFound(path));
}

} // namespace

void throw_system_error(std::uint32_t code, ustring const & path, ustring const & second_path) {
    std::vector<ustring> paths{path};
    if (!second_path.empty()) {
        paths.push_back(second_path);
    }
    auto const throw_invalid = [&](char const * message) {
        boost::throw_exception(InvalidArgument(message, path, paths));
    };
    switch (code) {
    case error::file_not_found:
        boost::throw_exception(PathNotFound(path));
    case error::path_not_found:
        throw_path_not_found(path, second_path);
    case error::access_denied:
    case error::cannot_access_file:
        boost::throw_exception(AccessDenied(path));
    case error::file_exists:
    case error::already_exists:
        boost::throw_exception(FileExistsError(path));
    case error::invalid_name:
        throw_invalid("The filename, directory name, or volume label syntax is incorrect.");
        break;
    case error::directory_not_empty:
        boost::throw_exception(DirectoryNotEmpty(path));
    case error::bad_path_name:
        throw_invalid("The specified path is invalid.");
        break;
    case error::name_too_long:
        boost::throw_exception(FileNameTooLarge(path));
    case error::not_a_directory:
        boost::throw_exception(NotDirectoryError(path));
    case error::not_a_reparse_point:
        throw_invalid("The file or directory is not a reparse point.");
        break;
    default:
        break;
    }
    boost::throw_exception(SystemError(code, path, paths));
}

} // namespace fl::filesystem::detail
