// PO files of catalogs: a message's context is its key, and its original text that of the base language.

#include "tools/fl_i18n/exchange/holes.hpp"
#include "tools/fl_i18n/exchange/plural_forms.hpp"
#include "tools/fl_i18n/exchange/po_catalog.hpp"
#include "tools/fl_i18n/exchange/po_embedding.hpp"
#include "tools/fl_i18n/exchange/po_own.hpp"

#include <algorithm>
#include <fl/i18n/ustring.hpp>
#include <iterator>
#include <unicode/utf16.h>
#include <utility>

namespace fl::tool {

namespace {

// What a message holds in places of its own, and an entry in these attributes.
constexpr std::string_view message_attributes[] = {"x:draft",      "x:comments", "x:flags",
                                                   "x:references", "x:previous", "x:before"};

/// Returns attributes but those that a message holds in places of its own.
attributes tag_attributes(attributes const & all) {
    attributes result;
    for (xml::attribute const & each : all) {
        if (std::find(std::begin(message_attributes), std::end(message_attributes), each.name) ==
            std::end(message_attributes)) {
            result.push_back(each);
        }
    }
    return result;
}

/// Tells whether a PO text cannot hold a text: null characters and lone surrogates.
bool must_be_escaped(i18n::ustring const & text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (U16_IS_LEAD(text[i]) && i + 1 < text.size() && U16_IS_TRAIL(text[i + 1])) {
            ++i;
        } else if (text[i] == 0 || U16_IS_SURROGATE(text[i])) {
            return true;
        }
    }
    return false;
}

/// Returns a locale as the header can name it; empty when it cannot.
std::string header_language(std::string const & locale) {
    bool const printable =
        std::all_of(locale.begin(), locale.end(), [](char c) { return c > ' ' && c < 0x7F; });
    return printable ? locale : std::string();
}

void embed_comments(std::vector<std::string> & lines, std::vector<std::string> const & comments) {
    for (std::string const & comment : comments) {
        embed_comment(lines, comment);
    }
}

/// Makes a message of a key. Its texts are escaped when one of them must be, which is returned.
bool set_texts(po_message & message, std::string const & key, i18n::ustring const & original,
               i18n::ustring const & text) {
    bool const escaped = must_be_escaped(original) || must_be_escaped(text);
    message.context = key;
    message.id = i18n::ustring_to_utf8(escaped ? escape_text(original) : original);
    message.texts.push_back(i18n::ustring_to_utf8(escaped ? escape_text(text) : text));
    if (has_plain_holes(original) && (text.empty() || has_plain_braces(text))) {
        auto flags = message.flags();
        message.lines(po_comment::flags) = {std::string(placeholder_flag)};
        for (std::string const & flag : flags) {
            message.lines(po_comment::flags).back() += ", " + flag;
        }
    }
    return escaped;
}

/// Embeds an entry's tag with the key: gettext's tools carry comments to similar messages.
void embed_entry_tag(std::vector<std::string> & lines, std::string const & key, attributes tag) {
    tag.insert(tag.begin(), {"key", key});
    embed_tag(lines, "entry", tag);
}

class exporter {
public:
    exporter(catalog const & contents, export_settings const & settings)
        : contents_(contents)
        , settings_(settings) {}

    po_file run() {
        add_header();
        for (entry_pair const & pair : pair_entries(contents_, settings_.base)) {
            if (pair.entry == nullptr || settings_.is_template) {
                add_untranslated(pair.base != nullptr ? *pair.base : *pair.entry);
            } else {
                add_aside_messages(pair.entry->attributes, "before");
                add(*pair.entry, pair.base);
            }
        }
        add_aside_messages(contents_.attributes, "after");
        return std::move(po_);
    }

private:
    void add_header() {
        po_message header;
        auto & lines = header.lines(po_comment::translator);
        for (std::string const & instruction : contents_.instructions) {
            lines.push_back("<?" + instruction + "?>");
        }
        embed_comments(lines, contents_.head_comments);
        attributes tag = tag_attributes(contents_.attributes);
        std::erase_if(tag,
                      [](auto const & each) { return each.name == "x:header" || each.name == "x:after"; });
        embed_tag(lines, "rsccat", tag);
        embed_comments(lines, contents_.tail_comments);
        po_message own;
        set_comments(own, contents_.attributes);
        auto const & other = own.lines(po_comment::translator);
        lines.insert(lines.end(), other.begin(), other.end());
        std::string const language =
            settings_.is_template ? "" : header_language(contents_.attribute("locale"));
        header.texts.push_back(
            exchange_text(contents_.attributes, "header").value_or(default_header(language)));
        po_.messages.push_back(header);
    }

    void add_aside_messages(attributes const & from, std::string_view name) {
        po_file const aside = read_aside(from, name);
        po_.messages.insert(po_.messages.end(), aside.messages.begin(), aside.messages.end());
        po_.last_lines.insert(po_.last_lines.end(), aside.last_lines.begin(), aside.last_lines.end());
    }

    /// Adds a message that has no translation to fill in.
    void add_untranslated(catalog_entry const & entry) {
        po_message message;
        if (set_texts(message, entry.key, entry.text.units, {})) {
            attributes tag;
            set_exchange_text(tag, escaped_mark, "yes");
            embed_entry_tag(message.lines(po_comment::translator), entry.key, tag);
        }
        embed_comments(message.lines(po_comment::extracted), entry.comments);
        po_.messages.push_back(message);
    }

    void add(catalog_entry const & entry, catalog_entry const * base) {
        i18n::ustring const original = original_text(entry, base);
        bool fuzzy = false;
        auto const translation = translation_of(entry, fuzzy);
        po_message message;
        set_comments(message, entry.attributes);
        attributes tag = tag_attributes(entry.attributes);
        renew_source(tag, original);
        if (set_texts(message, entry.key, original, translation.value_or(u""))) {
            set_exchange_text(tag, escaped_mark, "yes");
        }
        if (translation && translation->empty()) {
            set_exchange_text(tag, empty_mark, "yes");
        }
        set_fuzzy(message, fuzzy);
        std::vector<std::string> lines;
        embed_comments(lines, entry.comments);
        if (!tag.empty()) {
            embed_entry_tag(lines, entry.key, tag);
        }
        auto & own = message.lines(po_comment::translator);
        own.insert(own.begin(), lines.begin(), lines.end());
        message.lines(po_comment::extracted).clear();
        if (base != nullptr && base->comments != entry.comments) {
            embed_comments(message.lines(po_comment::extracted), base->comments);
        }
        po_.messages.push_back(message);
    }

    catalog const & contents_;
    export_settings const & settings_;
    po_file po_;
};

} // namespace

std::string default_header(std::string const & language) {
    std::string const forms = plural_forms(language);
    return "Project-Id-Version: \nPO-Revision-Date: \nLast-Translator: \nLanguage-Team: \nLanguage: " +
           language +
           "\nMIME-Version: 1.0\nContent-Type: text/plain; charset=UTF-8\nContent-Transfer-Encoding: 8bit\n" +
           (forms.empty() ? "" : "Plural-Forms: " + forms + "\n") + own_po_field + ": msgctxt\n";
}

po_file own_po_from_catalog(catalog const & contents, export_settings const & settings) {
    return exporter(contents, settings).run();
}

} // namespace fl::tool
