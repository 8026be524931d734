#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace fl::tool {

enum class po_word { end, comment, name, text, form };

/// A word of a PO file.
struct po_token {
    po_word kind = po_word::end;
    /// A comment's line, whole, also without the mark of obsolete messages; a name; a text without quotes and
    /// escapes; the digits of a form ("[0]").
    std::string value;
    bool obsolete = false; ///< on a line of obsolete messages
    std::size_t offset = 0;
};

/// Cuts the decoded text of a PO file into words.
class po_lexer {
public:
    po_lexer(std::string name, std::string const & text, std::string const & encoding);

    /// Returns the next word; throws `command_failure` with the place of what is none.
    po_token next();

    [[noreturn]] void fail(std::size_t offset, std::string const & what) const;

private:
    void skip_blanks();
    po_token comment();
    std::string text();
    void escape(std::string & result, std::string & coded);
    char number(std::size_t digits, int base);
    void flush(std::string & result, std::string & coded) const;

    std::string name_;
    std::string const & text_;
    std::string encoding_;
    std::size_t at_ = 0;
    bool obsolete_ = false;
};

} // namespace fl::tool
