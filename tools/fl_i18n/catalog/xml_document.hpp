#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reading XML with the place of everything, over Expat. Texts are UTF-8; offsets count the bytes of the
/// document.
namespace fl::tool::xml {

struct attribute {
    std::string name;
    std::string value;
    std::size_t name_offset = 0;  ///< the first character of the name
    std::size_t value_offset = 0; ///< the first character after the opening quote
};

/// Receives what a document holds, in its order. What comes out of an entity has the place of its reference.
class events {
public:
    virtual ~events() = default;

    /// `offset` is the place of the "<".
    virtual void on_start(std::string_view name, std::vector<attribute> const & attributes,
                          std::size_t offset) = 0;
    /// `offset` is the place of the "<" of the end tag; for an empty element ("<x/>") that of the element.
    virtual void on_end(std::string_view name, std::size_t offset) = 0;
    /// `literal` tells whether the document holds exactly these bytes at the place; else they stand for what
    /// is there, a line end or a reference.
    virtual void on_text(std::string_view text, std::size_t offset, bool literal) = 0;
    virtual void on_comment(std::string_view, std::size_t) {}
    /// A reference of an entity that a part of the declarations may define that is not read.
    virtual void on_skipped(std::string_view /*entity*/, std::size_t) {}
    virtual void on_instruction(std::string_view /*target*/, std::string_view /*data*/, std::size_t) {}
};

/// What makes a document malformed.
struct fault {
    std::string text;
    std::size_t offset = 0;
};

/// Reads a document, as UTF-8 whatever it declares when `forced_utf8`.
///
/// Returns the fault that ended the reading, if one did; the events before it were delivered. An exception of
/// an event ends the reading too and passes through.
std::optional<fault> read(std::string const & document, events & sink, bool forced_utf8);

/// Returns the value of an attribute, or null.
attribute const * find(std::vector<attribute> const & attributes, std::string_view name);

/// Returns a text with what has a meaning in XML replaced by references, fit for content and for attributes
/// in double quotes, where line ends and tabs are kept.
std::string escape(std::string_view text);

} // namespace fl::tool::xml
