#pragma once

#include <cstddef>
#include <cstdint>
#include <fl/i18n/ustring_type.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fl::tool {

/// A message text with the place of each unit in the document (an offset in bytes); one place more, at the
/// end, is that of what follows.
struct placed_text {
    i18n::ustring units;
    std::vector<std::uint32_t> places;
};

/// Turns the content of an entry into its text, as the loader does: lines are trimmed and joined by one
/// blank, then backslash escapes are replaced.
class text_builder {
public:
    /// Appends content; see `xml::events::on_text`.
    void append(std::string_view content, std::size_t offset, bool literal);

    /// Returns the text of the content so far and starts anew. `end` is the place of what follows.
    ///
    /// A malformed escape makes the text empty, and `bad_escape` is then its place.
    placed_text finish(std::size_t end, std::optional<std::size_t> & bad_escape);

private:
    std::string bytes_;
    std::vector<std::uint32_t> places_;
};

} // namespace fl::tool
