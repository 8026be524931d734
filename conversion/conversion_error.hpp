#pragma once

#include <unicode/utypes.h>

namespace fl::i18n {

/// Throws the exception that a failure of the conversion library stands for.
[[noreturn]] void throw_conversion_error(UErrorCode status);

} // namespace fl::i18n
