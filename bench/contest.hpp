#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace fl::bench {

/// The messages of which all contestants have the same: keys of 25 bytes, texts of 58 units without anything
/// to fill in, escape or convert in a special way. The same number always gives the same.
std::string key_of(std::uint32_t message);
std::string text_of(std::uint32_t message);

inline constexpr std::uint32_t message_count = 10'000;

/// 10,000 messages in the order in which they are asked for: one that looks random beside that of their
/// numbers, in which contestants are given them.
struct contest_messages {
    std::vector<std::string> keys;
    std::vector<std::string> narrow_texts;
    std::vector<std::u16string> texts;
};

contest_messages const & messages();

/// Returns the numbers below `count` in an order that looks random, and is always the same.
std::vector<std::uint32_t> permutation(std::uint32_t count);

/// The locale in which they are looked up, and the language whose catalogs are found for it.
inline constexpr char locale_name[] = "ja_JP";
inline constexpr char language[] = "ja";

} // namespace fl::bench
