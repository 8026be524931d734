#pragma once

#include <cstddef>
#include <fl/i18n/ustring_type.hpp>
#include <string>
#include <string_view>

namespace fl::i18n {

/// The source lengths from which on a converter object does the work, as the direct functions count in 32
/// bits.
inline constexpr std::size_t utf16_converter_threshold = 0x3fffffff;
inline constexpr std::size_t utf8_converter_threshold = 0x7fffffff;

/// Returns UTF-16 as UTF-8; each lone surrogate becomes U+FFFD.
std::string utf16_to_utf8(std::u16string_view text,
                          std::size_t converter_threshold = utf16_converter_threshold);

/// Returns UTF-8 as UTF-16; each ill-formed piece becomes U+FFFD.
ustring utf8_to_utf16(std::string_view text, std::size_t converter_threshold = utf8_converter_threshold);

} // namespace fl::i18n
