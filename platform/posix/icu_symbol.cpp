#include "platform/icu_symbol.hpp"

#include <dlfcn.h>

namespace fl::platform {

void * find_icu_symbol(void const * address_in_library, char const * name) {
    Dl_info info;
    if (dladdr(address_in_library, &info) == 0) {
        return nullptr;
    }
    // By the library's own handle: a library that was loaded for local use is not in the global scope.
    void * const library = dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD);
    if (!library) {
        return nullptr;
    }
    void * const symbol = dlsym(library, name);
    dlclose(library);
    return symbol;
}

} // namespace fl::platform
