#include "files/path_text.hpp"
#include "platform/boost_path.hpp"

#include <algorithm>
#include <fl/filesystem/file.hpp>

namespace fl::filesystem {

using i18n::ustring;

ustring to_ustring(boost::filesystem::path const & path) {
    return upath(platform::native_path(path)).string();
}

ustring to_generic_ustring(boost::filesystem::path const & path) {
    return to_generic_ustring(path, codecvt_filesystem_to_ustring(false));
}

ustring to_generic_ustring(boost::filesystem::path const & path,
                           i18n::converter<char16_t, wchar_t> const & with) {
    std::wstring generic = platform::native_path(path);
    std::replace(generic.begin(), generic.end(), upath_constant::PATHNAME_SEPARATOR_CHARACTER,
                 upath_constant::GENERIC_PATHNAME_SEPARATOR_CHARACTER);
    return detail::convert_path_text(generic, with);
}

std::wstring detail::make_native_access_form_i18n(ustring const & path) {
    return make_native_access_form(path);
}

std::wstring detail::make_native_access_form_with_cleanup_i18n(ustring const & path) {
    return make_native_access_form_with_cleanup(path);
}

} // namespace fl::filesystem
