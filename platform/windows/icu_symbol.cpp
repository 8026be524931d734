#include "platform/icu_symbol.hpp"

#include <windows.h>

namespace fl::platform {

void * find_icu_symbol(void const * address_in_library, char const * name) {
    HMODULE library = nullptr;
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            static_cast<LPCWSTR>(address_in_library), &library)) {
        return nullptr;
    }
    return reinterpret_cast<void *>(GetProcAddress(library, name));
}

} // namespace fl::platform
