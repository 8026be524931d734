#include "platform/platform.hpp"

#include <boost/throw_exception.hpp>
#include <fl/filesystem/exceptions.hpp>
#include <fl/filesystem/file.hpp>
#include <fl/i18n/ctype.hpp>

namespace fl::filesystem {

namespace {

using i18n::character_handling_mode_context;
using i18n::ustring;

void require_absolute(ustring const & path, std::vector<ustring> const & paths) {
    if (!path.empty() && !is_absolute(path)) {
        boost::throw_exception(InvalidArgument("Path must be absolute", path, paths));
    }
}

character_handling_mode_context system_mode() {
    return platform::names_ignore_case() ? character_handling_mode_context::case_insensitive_mode
                                         : character_handling_mode_context::default_mode;
}

} // namespace

int compare(ustring const & first, ustring const & second, character_handling_mode_context const & mode) {
    require_absolute(first, {first, second});
    require_absolute(second, {first, second});
    if (first.empty() || second.empty()) {
        return int(second.empty()) - int(first.empty());
    }
    try {
        return i18n::detail::compare(first, second, mode);
    } catch (i18n::CtypeExceptionBase const &) {
        boost::throw_exception(PathNameComparisonFailure());
    }
}

int compare(ustring const & first, ustring const & second) {
    return compare(first, second, system_mode());
}

int compare(upath const & first, upath const & second, character_handling_mode_context const & mode) {
    return compare(first.string(), second.string(), mode);
}

int compare(upath const & first, upath const & second) {
    return compare(first.string(), second.string());
}

} // namespace fl::filesystem
