#include "tools/fl_i18n/exchange/xliff_text.hpp"

#include "tools/fl_i18n/exchange/holes.hpp"
#include "tools/fl_i18n/exchange/xliff_file.hpp"

#include <algorithm>
#include <charconv>
#include <fl/i18n/ustring.hpp>
#include <unicode/utf16.h>

namespace fl::tool {

namespace {

constexpr char character_type[] = "x-character";

std::string value_of(attributes const & all, std::string_view name) {
    auto const * const found = xml::find(all, name);
    return found != nullptr ? found->value : std::string();
}

bool is_annotation(std::string_view name) {
    constexpr std::string_view names[] = {"g", "mrk", "sub", "sm", "em"};
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

/// Returns what names an element: what begins a range and what ends it can share an identifier.
std::string identifier(std::string_view name, attributes const & all) {
    bool const ends_range = name == "ept" || name == "ex" || name == "ec";
    std::string const start = value_of(all, "startRef");
    std::string const id = start.empty() ? value_of(all, "id") : start;
    return id.empty() ? id : (ends_range ? "/" : "") + id;
}

/// Returns the character of "cp", which may be one that no text should hold.
i18n::ustring character(std::string const & hex) {
    std::uint32_t c = 0;
    std::from_chars(hex.data(), hex.data() + hex.size(), c, 16);
    if (c <= 0xFFFF) {
        return {static_cast<char16_t>(c)};
    }
    return {static_cast<char16_t>(U16_LEAD(c)), static_cast<char16_t>(U16_TRAIL(c))};
}

/// Returns the first of what an element's attributes give to show.
std::string shown(attributes const & all, std::map<std::string, std::string> const & original_data,
                  std::initializer_list<char const *> references, std::initializer_list<char const *> names) {
    for (char const * const name : references) {
        auto const data = original_data.find(value_of(all, name));
        if (data != original_data.end()) {
            return data->second;
        }
    }
    for (char const * const name : names) {
        std::string const value = value_of(all, name);
        if (!value.empty()) {
            return value;
        }
    }
    return {};
}

/// Tells whether XML can hold the character at a place; `length` is the number of its units.
bool fits_xml(i18n::ustring const & text, std::size_t at, std::size_t & length) {
    char16_t const unit = text[at];
    bool const is_pair = U16_IS_LEAD(unit) && at + 1 < text.size() && U16_IS_TRAIL(text[at + 1]);
    length = is_pair ? 2 : 1;
    return is_pair || !(U16_IS_SURROGATE(unit) || unit >= 0xFFFE ||
                        (unit < 0x20 && unit != u'\t' && unit != u'\n' && unit != u'\r'));
}

/// Writes text as the content of an element, with numbered elements for what is no text.
class content_writer {
public:
    explicit content_writer(int version)
        : version_(version) {}

    void text(i18n::ustring const & units) {
        std::size_t length = 0;
        for (std::size_t i = 0; i < units.size(); i += length) {
            if (fits_xml(units, i, length)) {
                out_ += xml::escape(i18n::ustring_to_utf8(units.substr(i, length)));
            } else {
                character(units[i]);
            }
        }
    }

    void code(i18n::ustring const & units) {
        std::size_t length = 0;
        for (std::size_t i = 0; i < units.size(); i += length) {
            if (!fits_xml(units, i, length)) {
                text(units);
                return;
            }
        }
        std::string const code = xml::escape(i18n::ustring_to_utf8(units));
        std::string const id = "<ph id=\"" + std::to_string(++count_) + "\"";
        out_ += version_ == 1 ? id + ">" + code + "</ph>"
                              : id + " equiv=\"" + code + "\" disp=\"" + code + "\"/>";
    }

    std::string const & result() const { return out_; }

private:
    void character(char16_t unit) {
        std::string const escaped = i18n::ustring_to_utf8(escape_text({unit}));
        if (version_ == 1) {
            out_ += "<ph id=\"" + std::to_string(++count_) + "\" ctype=\"" + character_type + "\">" +
                    escaped + "</ph>";
        } else {
            // After "\u" of the escape its four digits.
            out_ += "<cp hex=\"" + escaped.substr(2) + "\"/>";
        }
    }

    int version_;
    int count_ = 0;
    std::string out_;
};

} // namespace

void xliff_text::begin_element(std::string_view name, attributes const & all,
                               std::map<std::string, std::string> const & original_data) {
    has_codes_ = true;
    element code;
    if (name == "cp") {
        code.instead = character(value_of(all, "hex"));
    } else if (name == "pc") {
        std::string const id = value_of(all, "id");
        text_ += this->code(id, shown(all, original_data, {"dataRefStart"}, {"dispStart", "equivStart"}));
        code.after = this->code("/" + id, shown(all, original_data, {"dataRefEnd"}, {"dispEnd", "equivEnd"}));
    } else if (!is_annotation(name)) {
        code.id = identifier(name, all);
        code.instead =
            this->code(code.id, shown(all, original_data, {"dataRef"}, {"disp", "equiv", "equiv-text"}));
        if (code.instead.empty()) {
            code.literal = "<" + std::string(name) + write_attributes(all) + "/>";
        }
        code.escaped = value_of(all, "ctype") == character_type;
    }
    code.begin = text_.size();
    open_.push_back(std::move(code));
}

void xliff_text::end_element() {
    element const & code = open_.back();
    if (text_.size() == code.begin) {
        text_ += code.instead;
        if (!code.literal.empty()) {
            append(code.literal);
            unknown_ = unknown_.empty() ? code.literal : unknown_;
        }
    } else if (code.escaped) {
        text_.replace(code.begin, text_.npos, unescape_text(text_.substr(code.begin)));
    }
    if (!code.id.empty()) {
        codes_[code.id] = text_.substr(code.begin);
    }
    text_ += code.after;
    open_.pop_back();
}

i18n::ustring xliff_text::code(std::string const & id, std::string const & given) {
    if (id.empty() || id == "/") {
        return i18n::utf8_to_ustring(given);
    }
    auto const known = known_.find(id);
    i18n::ustring const text =
        given.empty() && known != known_.end() ? known->second : i18n::utf8_to_ustring(given);
    codes_[id] = text;
    return text;
}

void xliff_text::append(std::string_view text) {
    text_ += i18n::utf8_to_ustring(std::string(text));
}

std::string to_xliff_content(i18n::ustring const & text, int version, bool with_holes) {
    content_writer writer(version);
    std::size_t begin = 0;
    for (hole const & each : with_holes ? simple_holes(text) : std::vector<hole>()) {
        writer.text(text.substr(begin, each.begin - begin));
        writer.code(text.substr(each.begin, each.end - each.begin));
        begin = each.end;
    }
    writer.text(text.substr(begin));
    return writer.result();
}

} // namespace fl::tool
