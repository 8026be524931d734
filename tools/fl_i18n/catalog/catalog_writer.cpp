#include "tools/fl_i18n/catalog/catalog.hpp"

#include <array>
#include <fl/i18n/ustring.hpp>
#include <string_view>
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

void write_attributes(std::string & xml, std::vector<xml::attribute> const & attributes) {
    for (xml::attribute const & attribute : attributes) {
        xml += " " + attribute.name + "=\"" + xml::escape(attribute.value) + "\"";
    }
}

} // namespace

std::string to_entry_content(i18n::ustring const & text) {
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
        } else if (unit == u'&') {
            result += u"&amp;";
        } else if (unit == u'<') {
            result += u"&lt;";
        } else if (unit == u'>') {
            result += u"&gt;";
        } else if (is_control(unit) || (unit == u' ' && at_edge) || unit >= 0xFFFE ||
                   (U16_IS_SURROGATE(unit) && !in_pair)) {
            result += i18n::utf8_to_ustring(escape_by_number(unit));
        } else {
            result += unit;
        }
    }
    return i18n::ustring_to_utf8(result);
}

std::string write_catalog(catalog const & contents) {
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    for (std::string const & instruction : contents.instructions) {
        xml += "<?" + instruction + "?>\n";
    }
    write_comments(xml, contents.head_comments, "");
    xml += "<rsccat";
    write_attributes(xml, contents.attributes);
    xml += ">\n  <message>\n";
    for (catalog_entry const & entry : contents.entries) {
        write_comments(xml, entry.comments, "    ");
        xml += "    <entry key=\"" + xml::escape(entry.key) + "\"";
        write_attributes(xml, entry.attributes);
        xml += ">" + to_entry_content(entry.text.units) + "</entry>\n";
    }
    write_comments(xml, contents.tail_comments, "    ");
    return xml + "  </message>\n</rsccat>\n";
}

} // namespace fl::tool
