#include "tools/fl_i18n/exchange/po_lexer.hpp"

#include "foundation/ascii.hpp"
#include "tools/fl_i18n/exchange/exchange.hpp"

#include <charconv>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ustring.hpp>
#include <system_error>
#include <utility>

namespace fl::tool {

namespace {

// A letter after a backslash, and what the two stand for.
constexpr std::string_view escape_letters = "abfnrtv\\\"";
constexpr std::string_view escaped_characters = "\a\b\f\n\r\t\v\\\"";

bool is_blank(char c) {
    return std::string_view(" \t\n\v\f\r").find(c) != std::string_view::npos;
}

bool is_octal(char c) {
    return c >= '0' && c <= '7';
}

} // namespace

po_lexer::po_lexer(std::string name, std::string const & text, std::string const & encoding)
    : name_(std::move(name))
    , text_(text)
    , encoding_(encoding) {}

void po_lexer::fail(std::size_t offset, std::string const & what) const {
    fail_at(name_, text_, offset, what);
}

void po_lexer::skip_blanks() {
    for (; at_ < text_.size() && is_blank(text_[at_]); ++at_) {
        obsolete_ = obsolete_ && text_[at_] != '\n';
    }
}

po_token po_lexer::comment() {
    std::size_t const end = std::min(text_.find('\n', at_), text_.size());
    po_token result{po_word::comment, text_.substr(at_, end - at_), obsolete_, at_};
    if (result.value.ends_with('\r')) {
        result.value.pop_back();
    }
    at_ = end;
    return result;
}

po_token po_lexer::next() {
    skip_blanks();
    if (at_ < text_.size() && text_[at_] == '#' && text_.compare(at_, 2, "#~") == 0) {
        obsolete_ = true;
        at_ += 2;
        if (at_ < text_.size() && text_[at_] == '|') {
            po_token result = comment();
            result.value = "#" + result.value;
            return result;
        }
        skip_blanks();
    }
    if (at_ == text_.size()) {
        return {po_word::end, {}, false, at_};
    }
    std::size_t const begin = at_;
    char const first = text_[at_];
    if (first == '#') {
        return comment();
    }
    if (first == '"') {
        ++at_;
        return {po_word::text, text(), obsolete_, begin};
    }
    if (first == '[') {
        std::size_t const end = std::min(text_.find_first_not_of("0123456789", at_ + 1), text_.size());
        if (end == at_ + 1 || end == text_.size() || text_[end] != ']') {
            fail(begin, "the number of a plural form is missing");
        }
        at_ = end + 1;
        return {po_word::form, text_.substr(begin + 1, end - begin - 1), obsolete_, begin};
    }
    while (at_ < text_.size() && (ascii::is_letter(text_[at_]) || text_[at_] == '_')) {
        ++at_;
    }
    if (at_ == begin) {
        fail(begin, "neither a keyword, a text in quotes nor a comment");
    }
    return {po_word::name, text_.substr(begin, at_ - begin), obsolete_, begin};
}

std::string po_lexer::text() {
    std::size_t const begin = at_ - 1;
    std::string result;
    std::string coded; // bytes in the file's encoding, given by number
    while (at_ < text_.size() && text_[at_] != '"' && text_[at_] != '\n') {
        if (text_[at_] == '\\') {
            escape(result, coded);
        } else {
            flush(result, coded);
            result += text_[at_++];
        }
    }
    if (at_ == text_.size() || text_[at_] == '\n') {
        fail(begin, "the text has no closing quote on its line");
    }
    ++at_;
    flush(result, coded);
    return result;
}

void po_lexer::escape(std::string & result, std::string & coded) {
    std::size_t const begin = at_++;
    char const letter = at_ < text_.size() ? text_[at_] : '\n';
    std::size_t const known = escape_letters.find(letter);
    if (known != std::string_view::npos) {
        ++at_;
        flush(result, coded);
        result += escaped_characters[known];
        return;
    }
    char byte = 0;
    if (is_octal(letter)) {
        byte = number(3, 8);
    } else if (letter == 'x') {
        ++at_;
        byte =
            number(std::string::npos, 16); // As gettext's tools do, all digits, of which the last two count.
    } else {
        fail(begin, "an unknown escape; a backslash is written \"\\\\\"");
    }
    if (byte == 0) {
        fail(begin, "a null character or no number: neither can stand in a text");
    }
    if (static_cast<unsigned char>(byte) >= 0x80) {
        coded += byte;
        return;
    }
    flush(result, coded);
    result += byte;
}

char po_lexer::number(std::size_t digits, int base) {
    std::size_t const limit = at_ + std::min(digits, text_.size() - at_);
    unsigned value = 0;
    unsigned digit = 0;
    while (at_ < limit && std::from_chars(&text_[at_], &text_[at_] + 1, digit, base).ec == std::errc()) {
        value = value * static_cast<unsigned>(base) + digit;
        ++at_;
    }
    return static_cast<char>(value);
}

void po_lexer::flush(std::string & result, std::string & coded) const {
    if (coded.empty()) {
        return;
    }
    try {
        i18n::codecvt_string_to_ustring converter(encoding_, false);
        result += i18n::ustring_to_utf8(converter.convert(coded));
    } catch (i18n::CvtExceptionBase const &) {
        fail(at_, "the bytes given by number before this are not valid in the file's encoding " + encoding_);
    }
    coded.clear();
}

} // namespace fl::tool
