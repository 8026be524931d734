#include "platform/boost_path.hpp"

#include <algorithm>

namespace fl::platform {

std::wstring native_path(boost::filesystem::path const & path) {
    std::wstring native = path.native();
    std::replace(native.begin(), native.end(), L'/', L'\\');
    return native;
}

} // namespace fl::platform
