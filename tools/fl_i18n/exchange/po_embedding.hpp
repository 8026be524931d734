#pragma once

#include "tools/fl_i18n/exchange/exchange.hpp"

#include <string>
#include <string_view>
#include <vector>

/// What a catalog holds beside its texts, in the lines of a PO comment: comments, instructions and a tag
/// without key, as XML; a comment of one line as plain text.
namespace fl::tool {

struct embedded {
    std::vector<std::string> instructions;
    std::vector<std::string> comments; ///< those before the tag
    bool has_tag = false;
    attributes tag;
    std::vector<std::string> later_comments;
    std::vector<std::string> other_lines; ///< those that cannot be comments of XML
};

/// Appends the lines of an XML comment.
void embed_comment(std::vector<std::string> & lines, std::string const & comment);

/// Appends the line of a tag.
void embed_tag(std::vector<std::string> & lines, std::string_view name, attributes const & all);

/// Tells whether a text can be a comment of XML.
bool fits_comment(std::string_view text);

/// Reads lines as they were embedded; what people added to them becomes comments.
embedded read_embedded(std::vector<std::string> const & lines);

} // namespace fl::tool
