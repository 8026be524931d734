#pragma once

#include <string>

/// @namespace fl
/// This library.

/// Text, its encodings and characters, locales, localised messages and resources, and the environment.
namespace fl::i18n {

/// A UTF-16 string in machine byte order.
///
/// It may hold lone surrogates; each operation says what it does with them.
using ustring = std::u16string;

} // namespace fl::i18n
