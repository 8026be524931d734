#include "foundation/filesystem/open_file.hpp"

#include "foundation/filesystem/native_form.hpp"

namespace fl::filesystem {

platform::file_handle open_file(upath const & path) {
    // A system call would read such a name up to the null character only, and open another file.
    if (path.native().find(L'\0') != std::wstring::npos) {
        return nullptr;
    }
    std::wstring const name = detail::make_query_form(path);
    return name.size() > detail::longest_path ? nullptr : platform::open_for_reading(name);
}

} // namespace fl::filesystem
