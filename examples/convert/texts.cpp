#include "texts.hpp"

#include <fl/filesystem/file.hpp>
#include <fl/i18n/ustring.hpp>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <ranges>
#include <system_error>
#include <utility>

namespace texts {

using namespace fl::i18n;

namespace {

[[noreturn]] void throw_system_error(std::string const & what) {
    throw std::system_error(errno, std::generic_category(), what);
}

/// Returns how many units at the beginning of a text are good, when not all are.
///
/// A converter says that a text is bad, not where. But a beginning of it is bad from a certain length on, and
/// that length can be searched for: a character that the beginning tears apart is another exception.
template <class To, class From>
std::size_t good_length(converter<To, From> const & with, std::basic_string<From> const & text) {
    auto const is_good = [&](std::size_t last) {
        try {
            with.get_destination_size(text.data(), last + 1);
            return true;
        } catch (CvtInvalidCharacter const &) {
            return false;
        } catch (CvtConversionFailure const &) {
            return true;
        }
    };
    return *std::ranges::partition_point(std::views::iota(std::size_t(0), text.size()), is_good);
}

/// Describes a place in a text by its line and the number of the unit in the line, both from 1.
template <class Char>
std::string place(std::size_t lines_before, std::basic_string<Char> const & text, std::size_t position) {
    auto const begin = text.begin();
    auto const here = begin + static_cast<std::ptrdiff_t>(position);
    auto const lines = std::count(begin, here, Char('\n'));
    std::size_t const line_end = position == 0 ? text.npos : text.rfind(Char('\n'), position - 1);
    std::size_t const line_begin = line_end == text.npos ? 0 : line_end + 1;
    return "line " + std::to_string(lines_before + static_cast<std::size_t>(lines) + 1) + ", " +
           (sizeof(Char) == 1 ? "byte " : "unit ") + std::to_string(position - line_begin + 1);
}

bool is_low_surrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

std::string hexadecimal(std::uint32_t value, int digits) {
    std::array<char, 9> text{};
    std::snprintf(text.data(), text.size(), "%0*X", digits, static_cast<unsigned>(value));
    return text.data();
}

} // namespace

file_handle open(std::string const & name, std::string const & mode) {
    file_handle file(fl::filesystem::fopen(to_ustring(name), mode));
    if (!file) {
        throw_system_error(name);
    }
    return file;
}

bool has_plain_lines(std::string const & encoding) {
    return codecvt_ustring_to_string(encoding, false).convert(u"\n") == "\n";
}

reader::reader(std::FILE * file, std::string const & encoding, bool lenient, bool by_lines)
    : file_(file)
    , to_unicode_(encoding, lenient)
    , by_lines_(by_lines) {}

ustring reader::next() {
    std::string const bytes = next_bytes();
    try {
        ustring text = to_unicode_.convert(bytes);
        lines_ += static_cast<std::size_t>(std::ranges::count(text, u'\n'));
        return text;
    } catch (CvtInvalidCharacter const &) {
        std::size_t const position = good_length(to_unicode_, bytes);
        auto const value = static_cast<unsigned char>(bytes[position]);
        throw fault(place(lines_, bytes, position) + ": malformed at the byte " + hexadecimal(value, 2));
    } catch (CvtConversionFailure const &) {
        throw fault(place(lines_, bytes, bytes.size()) + ": the text ends within a character");
    }
}

/// Returns the lines up to the last end of a line that a block holds, or all that is left.
std::string reader::next_bytes() {
    std::string bytes = std::exchange(rest_, {});
    std::array<char, 65536> block;
    while (std::size_t const length = std::fread(block.data(), 1, block.size(), file_)) {
        bytes.append(block.data(), length);
        std::size_t const line_end = by_lines_ ? bytes.rfind('\n') : bytes.npos;
        if (line_end != bytes.npos) {
            rest_ = bytes.substr(line_end + 1);
            bytes.resize(line_end + 1);
            break;
        }
    }
    if (std::ferror(file_)) {
        throw_system_error("reading");
    }
    return bytes;
}

writer::writer(std::FILE * file, std::string const & encoding, codecvt_call_back_mode mode)
    : file_(file)
    , from_unicode_(mode, encoding, codecvt_ustring_to_string(encoding, true).convert(u"?")) {}

void writer::write(ustring const & piece) {
    try {
        std::string const bytes = from_unicode_.convert(piece);
        if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size()) {
            throw_system_error("writing");
        }
    } catch (CvtInvalidCharacter const &) {
        std::size_t position = good_length(from_unicode_, piece);
        // A surrogate pair is found bad at its second half.
        position -= position > 0 && is_low_surrogate(piece[position]) ? 1 : 0;
        char32_t const character = to_u32string(piece.substr(position, 2)).front();
        throw fault(place(lines_, piece, position) + ": U+" + hexadecimal(character, 4) +
                    " does not exist in the output encoding");
    }
    lines_ += static_cast<std::size_t>(std::ranges::count(piece, u'\n'));
}

void writer::flush() {
    if (std::fflush(file_) != 0) {
        throw_system_error("writing");
    }
}

} // namespace texts
