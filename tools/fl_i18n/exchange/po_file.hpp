#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// PO files as gettext's tools read them. Texts are UTF-8, whatever the file's encoding.
namespace fl::tool {

/// The kinds of comments on a message, in the order in which gettext's tools write them.
enum class po_comment { translator, extracted, references, flags, previous };
constexpr std::size_t po_comment_kinds = 5;

/// A message. The one without context and with an empty original text is the file's header.
struct po_message {
    std::string domain; ///< what the last directive before it named; empty without one
    /// The lines of each kind of comment, without what marks them.
    std::array<std::vector<std::string>, po_comment_kinds> comments;
    bool obsolete = false;
    std::optional<std::string> context;
    std::string id;
    std::optional<std::string> plural_id;
    std::vector<std::string> texts; ///< one, or the forms of a plural
    std::size_t offset = 0;         ///< the place of its first word, in the decoded file

    std::vector<std::string> & lines(po_comment kind) { return comments[static_cast<std::size_t>(kind)]; }
    std::vector<std::string> const & lines(po_comment kind) const {
        return comments[static_cast<std::size_t>(kind)];
    }
    bool is_header() const { return !obsolete && !context && id.empty(); }
    /// Tells whether gettext shows the original instead of the texts for want of a translation.
    bool is_untranslated() const { return texts.front().empty(); }
    /// Returns the flags that count for gettext's tools: those of the last line.
    std::vector<std::string> flags() const;
    bool is_fuzzy() const;
};

struct po_file {
    std::vector<po_message> messages;
    std::vector<std::string> last_lines; ///< comments after the last message, whole
};

/// Decodes the bytes of a PO file into UTF-8, without byte-order mark. Throws `command_failure` with `name`
/// when they are malformed.
std::string decode_po(std::string const & name, std::string bytes, std::string & encoding);

/// Reads a decoded PO file; throws `command_failure` with `name` and the place of what is wrong.
po_file read_po(std::string const & name, std::string const & text, std::string const & encoding);

/// Returns messages as PO text in UTF-8, with a blank line between two.
std::string write_messages(std::vector<po_message> const & messages);

/// Returns a PO file in the encoding that its header names; throws `command_failure` when a text cannot be
/// expressed in that.
std::string write_po(po_file const & file);

/// Returns the value of a field of a header's text ("Language"); empty without it.
std::string header_field(std::string_view header, std::string_view field);

} // namespace fl::tool
