#pragma once

namespace fl::platform {

/// Returns a symbol that a loaded library exports, found by an address within that library; null when it has
/// none.
///
/// `name` is the exported name, with the version's suffix where the library appends one.
void * find_icu_symbol(void const * address_in_library, char const * name);

} // namespace fl::platform
