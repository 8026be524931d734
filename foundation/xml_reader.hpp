#pragma once

#include <cstdio>
#include <functional>
#include <optional>
#include <string_view>

/// Reading an XML document as events, over Expat.
namespace fl::xml {

/// Receives the events of one document. An operation that returns false stops the reading.
///
/// Texts are UTF-8 and live only during the call. An operation may throw: the reading stops and the exception
/// leaves `read_document`.
class event_sink {
public:
    virtual ~event_sink() = default;

    /// `encoding` is null when the declaration names none.
    virtual bool on_declaration(char const * version, char const * encoding) = 0;
    /// `attributes` alternates names and values and ends with a null.
    virtual bool on_start_element(char const * name, char const ** attributes) = 0;
    virtual bool on_end_element(char const * name) = 0;
    virtual bool on_character_data(std::string_view text) = 0;
};

enum class read_status { complete, no_parser, read_failed, malformed };

/// How the reading of a document ended; for a malformed one with Expat's error code and the position, where
/// lines count from 1 and columns (in bytes) from 0. A document that the sink stopped, or that is beyond a
/// limit (`fl::i18n::limits`), counts as malformed.
struct read_result {
    read_status status = read_status::complete;
    int error_code = 0;
    unsigned long line = 0;
    unsigned long column = 0;
};

/// Returns the first non-empty value of an attribute, else an empty one; null when the element has no such
/// attribute.
///
/// `attributes` alternates names and values and ends with a null.
char const * find_attribute(char const ** attributes, std::string_view name);

/// A run of a document's bytes.
struct block {
    std::string_view bytes;
    bool is_last = false;
};

/// Gives the blocks of a document one behind the other, however it is cut; each lives until the next call.
/// Nothing when reading fails.
using block_source = std::function<std::optional<block>()>;

/// Reads a document. How it is cut into blocks makes no difference, if only the first two bytes are together,
/// which tell the encoding; but which error what stands behind the root is depends on it.
///
/// `forced_encoding` overrides what the document declares; null honours the declaration and the byte-order
/// mark. Throws `std::bad_alloc` also when the parser has no memory to go on.
read_result read_document(block_source const & source, char const * forced_encoding, event_sink & sink);

/// Returns the blocks of what is in `file` from its current position to its end, which are of 1024 bytes.
block_source blocks_of(std::FILE * file);

} // namespace fl::xml
