#pragma once

#include <cstddef>

/// What a text, a pattern or a file may be at most.
///
/// The limits keep time, memory and stack in bounds whatever a catalog holds; nothing that is written for
/// readers comes near them. What is beyond one is treated as what is malformed: a pattern is
/// `MessageCatalog::MessageFormatIncorrect`, a catalog is not loaded, a locale database is not applied. A
/// text without an opening brace is no pattern: it may be of any length up to 2147483647 units.
namespace fl::i18n::limits {

/// UTF-16 units of a pattern. ICU reads longer ones, for memory of some thirty bytes for each apostrophe.
inline constexpr std::size_t longest_pattern = std::size_t{1} << 26;

/// Branches of plural, select and choice holes inside each other. ICU takes less than 2.5 KiB of stack for
/// each when it fills them: a stack of 256 KiB is enough.
inline constexpr std::size_t deepest_nesting = 64;

/// Holes, branches and number signs in a pattern, at any depth. Of this many the largest double makes 31
/// million units in less than a second.
inline constexpr std::size_t most_holes = 100'000;

/// Holes of a pattern that have a type without branches, such as a number or a date. Each makes a formatter
/// of ICU, which takes up to a millisecond and 10 KiB.
inline constexpr std::size_t most_formats = 1'000;

/// UTF-16 units of the style of a hole, such as "#,##0.00" or a skeleton. ICU takes time by the square of
/// it for some, less than two milliseconds for this much.
inline constexpr std::size_t longest_style = 4'096;

/// The units of a number in a skeleton ("scale/", "precision-increment/"), and its exponent of ten without
/// the sign. ICU writes as many digits at most, and doubles end at 308; but it would multiply by any number,
/// in minutes and gigabytes.
inline constexpr std::size_t greatest_magnitude = 999;

/// UTF-16 units of a pattern together with the arguments of its plain holes, each counted as often as it is
/// there at any depth; an argument in UTF-8 counts by its bytes.
inline constexpr std::size_t longest_result = std::size_t{1} << 28;

/// Bytes of a catalog, a catalog map or a locale database.
inline constexpr std::size_t longest_file = std::size_t{1} << 29;

/// Elements of a file inside each other; those of the formats are four at most.
inline constexpr std::size_t deepest_element = 10'000;

/// Bytes of a tag with its attributes, so also of a name and of a message's key. The texts of messages are
/// not bound by it.
inline constexpr std::size_t longest_tag = std::size_t{1} << 24;

/// Bytes that entities may add to a file until their sum is compared with the file: from then on it may be
/// a hundred times what was read so far.
inline constexpr std::size_t free_entity_bytes = std::size_t{64} * 1024;

} // namespace fl::i18n::limits
