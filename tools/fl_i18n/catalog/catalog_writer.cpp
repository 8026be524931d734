#include "tools/fl_i18n/catalog/catalog.hpp"

#include <boost/numeric/conversion/cast.hpp>
#include <fl/i18n/ustring.hpp>
#include <string_view>
#include <unicode/unistr.h>
#include <unicode/utf16.h>

namespace fl::tool {

namespace {

/// Returns the escape of a character by its number.
std::string escape_by_number(char16_t unit) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result = "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) {
        result += digits[(unit >> shift) & 0xF];
    }
    return result;
}

bool is_control(char16_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

void write_comments(std::string & xml, std::vector<std::string> const & comments, std::string_view indent) {
    for (std::string const & comment : comments) {
        xml.append(indent).append("<!--").append(comment).append("-->\n");
    }
}

} // namespace

std::string write_attributes(std::vector<xml::attribute> const & attributes) {
    std::string xml;
    for (xml::attribute const & attribute : attributes) {
        xml += " " + attribute.name + "=\"" + xml::escape(attribute.value) + "\"";
    }
    return xml;
}

i18n::ustring escape_text(i18n::ustring const & text) {
    i18n::ustring result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char16_t const unit = text[i];
        bool const in_pair = (U16_IS_LEAD(unit) && i + 1 < text.size() && U16_IS_TRAIL(text[i + 1])) ||
                             (U16_IS_TRAIL(unit) && i > 0 && U16_IS_LEAD(text[i - 1]));
        bool const at_edge = i == 0 || i + 1 == text.size();
        if (unit == u'\\') {
            result += u"\\\\";
        } else if (unit == u'\n') {
            result += u"\\n";
        } else if (unit == u'\t') {
            result += u"\\t";
        } else if (is_control(unit) || (unit == u' ' && at_edge) || unit >= 0xFFFE ||
                   (U16_IS_SURROGATE(unit) && !in_pair)) {
            result += i18n::utf8_to_ustring(escape_by_number(unit));
        } else {
            result += unit;
        }
    }
    return result;
}

i18n::ustring unescape_text(i18n::ustring const & text) {
    auto const length = boost::numeric_cast<std::int32_t>(text.size());
    icu::UnicodeString const result = icu::UnicodeString(false, text.data(), length).unescape();
    return {result.getBuffer(), static_cast<std::size_t>(result.length())};
}

std::string to_entry_content(i18n::ustring const & text) {
    std::string result;
    for (char const c : i18n::ustring_to_utf8(escape_text(text))) {
        // Quotes have no meaning there: people read them better as they are.
        result += c == '"' ? "\"" : xml::escape({&c, 1});
    }
    return result;
}

std::string write_catalog(catalog const & contents) {
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    for (std::string const & instruction : contents.instructions) {
        xml += "<?" + instruction + "?>\n";
    }
    write_comments(xml, contents.head_comments, "");
    xml += "<rsccat" + write_attributes(contents.attributes) + ">\n  <message>\n";
    for (catalog_entry const & entry : contents.entries) {
        write_comments(xml, entry.comments, "    ");
        xml += "    <entry key=\"" + xml::escape(entry.key) + "\"" + write_attributes(entry.attributes) +
               ">" + to_entry_content(entry.text.units) + "</entry>\n";
    }
    write_comments(xml, contents.tail_comments, "    ");
    return xml + "  </message>\n</rsccat>\n";
}

} // namespace fl::tool
