#pragma once

#include <fl/i18n/ustring_type.hpp>

/// Reports on standard output, while QZ_CHAR_ENCODING_DIAG is set, which text passed to the process-encoding
/// functions is not ASCII. The variable is read once, when the library is loaded.
namespace fl::i18n {

/// Writes `message` and the text when a text that ends with NUL is not ASCII.
void diagnose_narrow(char const * message, char const * text);

/// Writes that `to_string` was called and the whole text when it is not ASCII before its first NUL.
void diagnose_to_string(ustring const & text);

} // namespace fl::i18n
