#include "foundation/filesystem/open_file.hpp"

#include "foundation/filesystem/native_form.hpp"

namespace fl::filesystem {

platform::file_handle open_file(upath const & path) {
    return platform::open_for_reading(detail::make_query_form(path));
}

} // namespace fl::filesystem
