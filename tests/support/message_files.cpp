#include "tests/support/message_files.hpp"

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fl::test {

namespace {

/// A message file: a table of originals and one of translations, each row with a length and an offset.
class message_file {
public:
    explicit message_file(std::filesystem::path const & path) {
        std::ifstream stream(path, std::ios::binary);
        bytes_.assign(std::istreambuf_iterator<char>(stream), {});
        constexpr std::uint32_t magic = 0x950412de;
        if (word(0) != magic) {
            throw std::runtime_error("not a message file: " + path.string());
        }
    }

    std::uint32_t size() const { return word(8); }
    std::string original(std::uint32_t i) const { return text(word(12) + 8 * i); }
    std::string translation(std::uint32_t i) const { return text(word(16) + 8 * i); }

private:
    std::uint32_t word(std::size_t offset) const {
        std::uint32_t result = 0;
        if (offset + sizeof result > bytes_.size()) {
            throw std::runtime_error("a message file is too short");
        }
        std::memcpy(&result, bytes_.data() + offset, sizeof result);
        return result;
    }
    std::string text(std::size_t row) const { return bytes_.substr(word(row + 4), word(row)); }

    std::string bytes_;
};

/// Adds a message; the forms of a plural, which NUL separates, become messages of their own.
void add(translations & messages, std::string const & original, std::string const & translation) {
    std::size_t begin = 0;
    for (int form = 0; begin <= translation.size(); ++form) {
        std::size_t const end = std::min(translation.find('\0', begin), translation.size());
        messages.emplace(original.substr(0, original.find('\0')) + (form ? "#" + std::to_string(form) : ""),
                         translation.substr(begin, end - begin));
        begin = end + 1;
    }
}

} // namespace

std::map<std::string, translations> read_message_files(std::filesystem::path const & directory) {
    std::map<std::string, translations> result;
    for (auto const & entry : std::filesystem::recursive_directory_iterator(directory)) {
        if (entry.path().extension() != ".mo") {
            continue;
        }
        message_file const file(entry.path());
        // The translation of the empty text is the file's head.
        if (file.size() == 0 || file.translation(0).find("charset=UTF-8") == std::string::npos) {
            continue;
        }
        // .../LANGUAGE/LC_MESSAGES/DOMAIN.mo
        translations & messages = result[entry.path().parent_path().parent_path().filename().string()];
        for (std::uint32_t i = 1; i < file.size(); ++i) {
            add(messages, file.original(i), file.translation(i));
        }
    }
    return result;
}

std::string to_catalog_text(std::string const & text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char const c = text[i];
        bool const at_edge = i == 0 || i + 1 == text.size();
        if (c == '\\') {
            result += "\\\\";
        } else if (c == '&') {
            result += "&amp;";
        } else if (c == '<') {
            result += "&lt;";
        } else if ((c > 0 && c < ' ') || (c == ' ' && at_edge)) {
            char escape[] = "\\u00XX";
            constexpr char digits[] = "0123456789ABCDEF";
            escape[4] = digits[c >> 4];
            escape[5] = digits[c & 15];
            result += escape;
        } else {
            result += c;
        }
    }
    return result;
}

} // namespace fl::test
