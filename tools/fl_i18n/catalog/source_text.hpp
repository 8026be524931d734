#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace fl::tool {

/// A place in a file as people count: from 1, columns in characters (code points).
struct position {
    std::size_t line = 1;
    std::size_t column = 1;

    friend bool operator==(position const &, position const &) = default;
};

/// The text of a file in UTF-8, with the places of its bytes.
class source_text {
public:
    explicit source_text(std::string utf8);

    std::string const & bytes() const noexcept { return bytes_; }

    /// Returns the place of the character at a byte offset; the end of the text is a place too.
    position position_of(std::size_t offset) const;

private:
    std::size_t characters_before(std::size_t offset) const;

    std::string bytes_;
    std::vector<std::size_t> line_starts_;
    std::vector<std::size_t> characters_; ///< before each block of bytes
};

/// Decodes the bytes of an XML document into UTF-8, as Expat would read them: by byte-order mark, null bytes
/// or declaration. Bytes in an encoding that Expat does not read stay as they are.
///
/// `decoded` tells whether the result is in another encoding than its declaration says. Throws
/// `std::runtime_error` when the bytes are malformed in their encoding.
std::string decode_xml(std::string bytes, bool & decoded);

} // namespace fl::tool
