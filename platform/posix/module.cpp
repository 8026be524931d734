#include "platform/platform.hpp"
#include "platform/posix/native_text.hpp"

#include <cstdlib>
#include <dlfcn.h>
#include <link.h>

namespace fl::platform {

namespace {

/// Returns the name under which the loader knows the module; the program itself has none there.
char const * loaded_name(void const * address) {
    Dl_info information;
    link_map * module = nullptr;
    if (!::dladdr1(address, &information, reinterpret_cast<void **>(&module), RTLD_DL_LINKMAP)) {
        return nullptr;
    }
    return module->l_name[0] != '\0' ? module->l_name : "/proc/self/exe";
}

} // namespace

std::wstring module_path(void const * address) {
    struct deallocate {
        void operator()(char * memory) const noexcept { std::free(memory); }
    };
    char const * const name = loaded_name(address);
    std::unique_ptr<char, deallocate> const path(name ? ::realpath(name, nullptr) : nullptr);
    return path ? native_path_from_bytes(path.get()) : std::wstring();
}

} // namespace fl::platform
