#include "catalogs/simple_message.hpp"

#include "catalogs/double_formats.hpp"
#include "foundation/ascii.hpp"
#include "foundation/find_unit.hpp"
#include "foundation/utf8_decode.hpp"

#include <algorithm>
#include <fl/i18n/limits.hpp>

namespace fl::i18n {

namespace {

using Argument = MessageCatalog::Argument;

/// Hole numbers are below this.
constexpr std::size_t most_holes = 64;

struct room_for_argument {
    std::size_t operator()(std::int64_t value) const { return i18n::room_for(value); }
    std::size_t operator()(double value) const { return i18n::room_for(value); }
    std::size_t operator()(ustring const & value) const { return value.size(); }
    std::size_t operator()(std::string const & value) const { return value.size(); }
};

bool is_number(Argument const & arg) {
    return std::holds_alternative<std::int64_t>(arg) || std::holds_alternative<double>(arg);
}

} // namespace

/// Reads a hole in its usual spelling: a number of one or two digits, the type in small letters, and no other
/// white space than spaces.
class simple_message::hole_reader {
public:
    /// Takes the text after the opening brace.
    hole_reader(char16_t const * at, char16_t const * end)
        : at_(at)
        , end_(end) {}

    /// Returns whether a hole of a kind known here is there.
    bool read() { return read_number() && read_type() && take(u'}'); }

    /// Return what was read, and where the text that is still to be read begins.
    unsigned number() const { return number_; }
    kind type() const { return type_; }
    char16_t const * position() const { return at_; }

private:
    bool read_number() {
        skip_spaces();
        if (at_ == end_ || !ascii::is_digit(*at_)) {
            return false;
        }
        number_ = static_cast<unsigned>(*at_++ - u'0');
        if (number_ != 0 && at_ != end_ && ascii::is_digit(*at_)) {
            number_ = 10 * number_ + static_cast<unsigned>(*at_++ - u'0');
        }
        return number_ < most_holes;
    }
    bool read_type() {
        if (!take(u',')) {
            return true;
        }
        type_ = kind::number;
        if (!take(u"number")) {
            return false;
        }
        if (!take(u',')) {
            return true;
        }
        type_ = kind::integer;
        return take(u"integer");
    }

    void skip_spaces() {
        while (at_ != end_ && *at_ == u' ') {
            ++at_;
        }
    }
    /// Skips what is there, and spaces before it.
    bool take(char16_t unit) {
        skip_spaces();
        bool const found = at_ != end_ && *at_ == unit;
        at_ += found;
        return found;
    }
    bool take(std::u16string_view word) {
        skip_spaces();
        bool const found = std::u16string_view(at_, end_).starts_with(word);
        at_ += found ? word.size() : 0;
        return found;
    }

    char16_t const * at_;
    char16_t const * end_;
    unsigned number_ = 0;
    kind type_ = kind::plain;
};

simple_message::simple_message(std::u16string_view message)
    : message_(message)
    , is_simple_(message.size() <= limits::longest_pattern && read()) {}

bool simple_message::read() {
    char16_t const * const begin = message_.data();
    char16_t const * const end = begin + message_.size();
    for (std::size_t at = 0;;) {
        at = static_cast<std::size_t>(find_either(begin + at, end, u'{', u'\'') - begin);
        if (at == message_.size()) {
            return true;
        }
        if (count_ == replacements_.size() || !(begin[at] == u'{' ? read_hole(at) : read_apostrophe(at))) {
            return false;
        }
    }
}

// An apostrophe is text unless it begins a quotation; two are one.
bool simple_message::read_apostrophe(std::size_t & at) {
    ++at;
    char16_t const next = at == message_.size() ? u'\0' : message_[at];
    if (next == u'\'') {
        auto const begin = static_cast<std::uint32_t>(at++);
        replacements_[count_++] = {begin, begin + 1, 0, kind::apostrophe};
    }
    return next != u'{' && next != u'}';
}

bool simple_message::read_hole(std::size_t & at) {
    char16_t const * const begin = message_.data();
    hole_reader hole(begin + at + 1, begin + message_.size());
    if (!hole.read()) {
        return false;
    }
    auto const end = static_cast<std::size_t>(hole.position() - begin);
    replacements_[count_++] = {static_cast<std::uint32_t>(at), static_cast<std::uint32_t>(end),
                               static_cast<std::uint8_t>(hole.number()), hole.type()};
    at = end;
    std::uint64_t const bit = std::uint64_t{1} << hole.number();
    distinct_holes_ += (holes_ & bit) == 0;
    holes_ |= bit;
    return true;
}

std::size_t simple_message::room_for(std::vector<Argument> const & args) const {
    std::size_t units = message_.size();
    for (std::size_t i = 0; i < count_; ++i) {
        auto const & [begin, end, number, what] = replacements_[i];
        if (what == kind::apostrophe) {
            continue;
        }
        if (number >= args.size() || (what != kind::plain && !is_number(args[number]))) {
            return too_much;
        }
        std::size_t const more = std::visit(room_for_argument(), args[number]);
        if (more > limits::longest_result) {
            return too_much;
        }
        units += more;
    }
    return units <= limits::longest_result ? units : too_much;
}

/// Writes arguments to where there is room for them.
class simple_message::writer {
public:
    writer(char16_t * out, std::optional<numeric_format> const & format)
        : out_(out)
        , format_(format) {}

    char16_t * end() const { return out_; }

    void write(std::u16string_view text) { out_ = std::copy(text.begin(), text.end(), out_); }
    void write(Argument const & arg, kind what) {
        what_ = what;
        std::visit(*this, arg);
    }

    void operator()(std::int64_t value) { out_ = write_integer(value, out_); }
    void operator()(ustring const & value) { write(value); }
    void operator()(std::string const & value) { out_ += decode_utf8(out_, value); }
    void operator()(double value) {
        if (what_ != kind::plain) {
            out_ = write_number(value, what_ == kind::number ? 6 : 0, out_);
            return;
        }
        if (!format_) {
            format_ = default_double_format();
        }
        out_ = write_double(value, *format_, out_);
    }

private:
    char16_t * out_;
    std::optional<numeric_format> format_;
    kind what_ = kind::plain;
};

ustring simple_message::fill(std::vector<Argument> const & args, std::optional<numeric_format> const & format,
                             std::size_t room) const {
    ustring result(room, u'\0');
    writer to(result.data(), format);
    write_all(args, to);
    result.resize(static_cast<std::size_t>(to.end() - result.data()));
    return result;
}

void simple_message::write_all(std::vector<Argument> const & args, writer & to) const {
    std::size_t done = 0;
    for (std::size_t i = 0; i < count_; ++i) {
        auto const & replaced = replacements_[i];
        to.write(message_.substr(done, replaced.begin - done));
        if (replaced.what != kind::apostrophe) {
            to.write(args[replaced.number], replaced.what);
        }
        done = replaced.end;
    }
    to.write(message_.substr(done));
}

} // namespace fl::i18n
