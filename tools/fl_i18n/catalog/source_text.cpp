#include "tools/fl_i18n/catalog/source_text.hpp"

#include "foundation/ascii.hpp"

#include <algorithm>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ustring.hpp>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace fl::tool {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

/// Characters are counted ahead by blocks, for a file may be one long line.
constexpr std::size_t block_size = 256;

bool begins_character(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

/// Returns the encoding that the XML declaration names, in lower case; empty when it names none.
std::string declared_encoding(std::string_view document) {
    if (!document.starts_with("<?xml"sv) || document.find_first_of(" \t\r\n") != 5) {
        return {};
    }
    std::string_view const declaration = document.substr(0, document.find("?>"));
    std::size_t const name = declaration.find("encoding");
    std::size_t const begin = declaration.find_first_of("\"'", name);
    if (name == std::string_view::npos || begin == std::string_view::npos) {
        return {};
    }
    std::size_t const end = declaration.find(declaration[begin], begin + 1);
    return ascii::to_lower(declaration.substr(begin + 1, end - begin - 1));
}

/// Returns the encoding to decode from; empty when the bytes are to be left alone.
std::string source_encoding(std::string_view bytes) {
    if (bytes.starts_with("\xFE\xFF"sv) || bytes.starts_with("\0<"sv)) {
        return "UTF-16BE";
    }
    if (bytes.starts_with("\xFF\xFE"sv) || bytes.starts_with("<\0"sv)) {
        return "UTF-16LE";
    }
    std::string const declared = declared_encoding(bytes);
    return declared == "iso-8859-1" ? declared : std::string();
}

} // namespace

source_text::source_text(std::string utf8)
    : bytes_(std::move(utf8))
    , line_starts_{bytes_.starts_with(byte_order_mark) ? byte_order_mark.size() : 0} {
    std::size_t characters = 0;
    for (std::size_t i = 0; i < bytes_.size(); ++i) {
        if (i % block_size == 0) {
            characters_.push_back(characters);
        }
        characters += begins_character(bytes_[i]) ? 1U : 0U;
        bool const ends_line =
            bytes_[i] == '\n' || (bytes_[i] == '\r' && (i + 1 == bytes_.size() || bytes_[i + 1] != '\n'));
        if (ends_line) {
            line_starts_.push_back(i + 1);
        }
    }
    characters_.push_back(characters);
}

std::size_t source_text::characters_before(std::size_t offset) const {
    std::size_t const block = offset / block_size;
    auto const first = bytes_.begin() + static_cast<std::ptrdiff_t>(block * block_size);
    auto const last = bytes_.begin() + static_cast<std::ptrdiff_t>(offset);
    return characters_[block] + static_cast<std::size_t>(std::count_if(first, last, begins_character));
}

position source_text::position_of(std::size_t offset) const {
    offset = std::clamp(offset, line_starts_.front(), bytes_.size());
    auto const after = std::upper_bound(line_starts_.begin(), line_starts_.end(), offset);
    std::size_t const start = *(after - 1);
    return {static_cast<std::size_t>(after - line_starts_.begin()),
            characters_before(offset) - characters_before(start) + 1};
}

std::string decode_xml(std::string bytes, bool & decoded) {
    std::string const encoding = source_encoding(bytes);
    decoded = !encoding.empty();
    if (!decoded) {
        return bytes;
    }
    try {
        i18n::codecvt_string_to_ustring converter(encoding, false);
        i18n::ustring text = converter.convert(bytes);
        text.erase(0, text.starts_with(u'\uFEFF') ? 1 : 0);
        return i18n::ustring_to_utf8(text);
    } catch (i18n::CvtExceptionBase const &) {
        throw std::runtime_error("the file is not valid in its encoding " +
                                 ascii::to_upper(std::string_view(encoding)));
    }
}

} // namespace fl::tool
