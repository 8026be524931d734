#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fl::bench {

/// A text in UTF-8 and UTF-16.
struct utf8_case {
    std::string name;
    std::u16string utf16;
    std::string utf8;
    /// Tells whether `utf16` holds no halves of pairs, in whose place `utf8` has U+FFFD.
    bool is_well_formed;

    std::string to_utf16() const { return "utf8 to utf16/" + name + '/'; }
    std::string to_utf8() const { return "utf16 to utf8/" + name + '/'; }
};

/// A text of 20 units in an encoding that a process may have, and in UTF-16.
struct encoding_case {
    char const * locale; ///< one that has the encoding
    char const * encoding;
    char const * name;
    std::string bytes;
    std::u16string utf16;

    bool is_utf8() const { return std::string_view(encoding) == "UTF-8"; }
    /// Returns the name of a contest in a subject, with a slash behind it.
    std::string contest(char const * subject) const { return std::string(subject) + '/' + name + '/'; }
};

/// Return the cases of conversions, which live as long as the process.
std::vector<utf8_case> const & utf8_cases();
std::vector<encoding_case> const & encoding_cases();

} // namespace fl::bench
