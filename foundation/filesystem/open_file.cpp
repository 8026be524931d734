#include "foundation/filesystem/open_file.hpp"

#include "foundation/filesystem/native_form.hpp"

namespace fl::filesystem {

platform::file_handle open_file(upath const & path) {
    // A system call would read such a name up to the null character only, and open another file.
    bool const is_name = path.native().find(L'\0') == std::wstring::npos;
    return is_name ? platform::open_for_reading(detail::make_query_form(path)) : nullptr;
}

} // namespace fl::filesystem
