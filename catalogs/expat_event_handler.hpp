#pragma once

#include "foundation/xml_reader.hpp"

#include <fl/filesystem/path.hpp>

#include <string>

namespace fl::i18n {

/// Receives the elements and texts of one XML file. An operation that returns false stops the reading.
class ExpatEventHandler {
public:
    ExpatEventHandler(ExpatEventHandler const &) = delete;
    ExpatEventHandler & operator=(ExpatEventHandler const &) = delete;

    virtual ~ExpatEventHandler();
    /// `attributes` alternates names and values and ends with a null.
    virtual bool start_element(char const * name, char const ** attributes) = 0;
    virtual bool character_data(char const * text, std::size_t length) = 0;
    virtual bool end_element(char const * name) = 0;

    /// Returns the encoding that overrides what files declare; null when there is none.
    char const * encoding() const noexcept { return encoding_.empty() ? nullptr : encoding_.c_str(); }

protected:
    /// An empty encoding name leaves the encoding to the file: its declaration or byte-order mark, else
    /// UTF-8.
    explicit ExpatEventHandler(std::string encoding = {});

private:
    std::string encoding_;
};

/// Reads a document into a handler; exceptions of the handler pass through.
xml::read_result parse_document(xml::block_source const & source, ExpatEventHandler & handler);

/// Reads a file. Returns false when it is missing, unreadable or malformed, or when the handler has stopped
/// the reading; exceptions of the handler pass through. Throws `std::bad_alloc`, which says nothing of the
/// file.
bool parse_file(filesystem::upath const & path, ExpatEventHandler & handler);

} // namespace fl::i18n
