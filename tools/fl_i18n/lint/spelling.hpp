#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fl::tool::lint {

/// Returns the one word that somebody who wrote `word` most likely meant; nothing when none is near, or
/// several are.
std::optional<std::string> guess_spelling(std::string_view word, std::vector<std::string> const & words);

} // namespace fl::tool::lint
