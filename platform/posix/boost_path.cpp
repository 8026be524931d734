#include "platform/boost_path.hpp"

#include "platform/posix/native_text.hpp"

namespace fl::platform {

std::wstring native_path(boost::filesystem::path const & path) {
    return native_path_from_bytes(path.native());
}

} // namespace fl::platform
