#pragma once

#include <string>
#include <string_view>

namespace fl::i18n::detail {

/// Joins the lines of a message's text by single blanks, each without white space at its ends; blank lines
/// vanish.
///
/// The text comes in chunks, however the XML parser splits it; a line break is always the end of a chunk.
class MessageCatalogTextProcessor {
public:
    void add_chunk(std::string_view chunk);
    /// Returns the text of all chunks since the last call.
    std::string extract_complete_message();

private:
    void complete_line();

    std::string pending_line_;
    bool line_is_complete_ = false; ///< the pending line holds a line break
    std::string completed_;
};

} // namespace fl::i18n::detail
