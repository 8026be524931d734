#pragma once

#include <fl/i18n/numeric_format.hpp>

#include <unicode/unistr.h>

namespace fl::i18n {

/// Writes a double in a numeric format, by the rules of "en_US_POSIX".
///
/// Throws `MessageCatalog::MessageFormatIncorrect` when that fails.
icu::UnicodeString write_double(double value, numeric_format format);

} // namespace fl::i18n
