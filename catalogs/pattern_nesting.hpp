#pragma once

#include <cstddef>
#include <string_view>

namespace fl::i18n {

/// Tells whether the branches of holes in a pattern are inside each other at most so many times.
///
/// ICU's parser and formatter call themselves for each branch, so this is to be known before. The pattern is
/// read as they read it, but only for that; a text that is no pattern has either answer.
bool nests_within(std::size_t deepest, std::u16string_view pattern);

} // namespace fl::i18n
