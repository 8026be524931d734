#pragma once

#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/converter.hpp>
#include <fl/i18n/ustring_type.hpp>

#include <cstddef>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

/// Files of text in any encoding, read and written piece by piece.
namespace texts {

struct close_file {
    void operator()(std::FILE * file) const { std::fclose(file); }
};
using file_handle = std::unique_ptr<std::FILE, close_file>;

/// Opens a file whose name is in the process encoding; throws `std::system_error`.
file_handle open(std::string const & name, std::string const & mode);

/// Says what in a text cannot be converted, and where.
class fault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Tells whether a file in this encoding can be converted line by line.
///
/// That is so where a line feed is the byte 0A and nothing else, and a file has no mark at its beginning: in
/// all encodings made from ASCII, and in ISO-2022-JP, whose lines begin and end in ASCII. It is not in
/// UTF-16.
bool has_plain_lines(std::string const & encoding);

/// Reads a file in pieces of whole lines, or as one piece.
class reader {
public:
    /// Malformed bytes become U+FFFD when `lenient`, else `next` throws `fault`.
    reader(std::FILE * file, std::string const & encoding, bool lenient, bool by_lines);

    /// Returns the next piece of the text; empty at its end.
    fl::i18n::ustring next();

private:
    std::string next_bytes();

    std::FILE * file_;
    fl::i18n::codecvt_string_to_ustring to_unicode_;
    bool by_lines_;
    std::string rest_;      // the beginning of a line whose end has not been read yet
    std::size_t lines_ = 0; // lines before the piece
};

/// Writes a file in pieces.
class writer {
public:
    /// The mode is for characters that the encoding lacks; with `call_back_substitute` they become "?".
    writer(std::FILE * file, std::string const & encoding, fl::i18n::codecvt_call_back_mode mode);

    /// Writes a piece; throws `fault` for a character that the encoding lacks when the mode is to stop there.
    void write(fl::i18n::ustring const & piece);
    /// Writes what is still in memory; throws `std::system_error`.
    void flush();

private:
    std::FILE * file_;
    fl::i18n::codecvt_ustring_to_string from_unicode_;
    std::size_t lines_ = 0;
};

} // namespace texts
