// XLIFF files of catalogs: a unit's name is its key, and its source the text of the base language.

#include "tools/fl_i18n/exchange/message_key.hpp"
#include "tools/fl_i18n/exchange/po_embedding.hpp"
#include "tools/fl_i18n/exchange/xliff_catalog.hpp"
#include "tools/fl_i18n/split.hpp"

#include <algorithm>
#include <fl/i18n/ustring.hpp>
#include <set>
#include <utility>

namespace fl::tool {

namespace {

/// Returns a locale's name as XML names languages ("pt-BR").
std::string to_language(std::string const & locale) {
    std::string language = locale.substr(0, locale.find_first_of(".@"));
    std::replace(language.begin(), language.end(), '_', '-');
    return language.empty() ? "und" : language;
}

char const * usual_state(int version, bool fuzzy) {
    return !fuzzy ? "translated" : version == 1 ? "needs-review-translation" : "initial";
}

class exporter {
public:
    exporter(catalog const & contents, export_settings const & settings, int version,
             std::string const & name)
        : contents_(contents)
        , settings_(settings)
        , version_(version)
        , name_(xml::escape(name)) {}

    std::string run() {
        begin();
        for (entry_pair const & pair : pair_entries(contents_, settings_.base)) {
            add(pair);
        }
        return xml_ + (version_ == 1 ? "    </body>\n" : "") + "  </file>\n</xliff>\n";
    }

private:
    void begin() {
        std::string const own = contents_.attribute("locale");
        std::string source = settings_.source_locale;
        if (source.empty()) {
            source = settings_.base != nullptr ? settings_.base->attribute("locale") : own;
        }
        std::string const namespaces = "\" xmlns:x=\"" + std::string(exchange_namespace) + "\"";
        std::string const from = xml::escape(to_language(source));
        std::string const to = xml::escape(to_language(own));
        xml_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        if (version_ == 1) {
            xml_ += "<xliff version=\"1.2\" xmlns=\"urn:oasis:names:tc:xliff:document:1.2" + namespaces +
                    ">\n  <file original=\"" + name_ + "\" datatype=\"plaintext\" source-language=\"" + from +
                    "\"" + (settings_.is_template ? "" : " target-language=\"" + to + "\"") +
                    " xml:space=\"preserve\">\n    <header>\n      " + catalog_element() +
                    "\n    </header>\n    <body>\n";
        } else {
            xml_ += "<xliff version=\"2.0\" xmlns=\"urn:oasis:names:tc:xliff:document:2.0" + namespaces +
                    " srcLang=\"" + from + "\"" + (settings_.is_template ? "" : " trgLang=\"" + to + "\"") +
                    ">\n  <file id=\"f1\" original=\"" + name_ +
                    "\" canResegment=\"no\" xml:space=\"preserve\">\n    " + catalog_element() + "\n";
        }
    }

    std::string catalog_element() const {
        std::vector<std::string> lines;
        for (std::string const & instruction : contents_.instructions) {
            lines.push_back("<?" + instruction + "?>");
        }
        for (std::string const & comment : contents_.head_comments) {
            embed_comment(lines, comment);
        }
        embed_tag(lines, "rsccat", contents_.attributes);
        for (std::string const & comment : contents_.tail_comments) {
            embed_comment(lines, comment);
        }
        return "<x:catalog>" + xml::escape(join_lines(lines)) + "</x:catalog>";
    }

    std::string note(std::string const & text, bool of_source) const {
        std::string const mark = version_ == 1 ? " from=\"source\"" : " category=\"source\"";
        return "<note" + (of_source ? mark : "") + ">" + xml::escape(text) + "</note>";
    }

    std::string notes(entry_pair const & pair) const {
        std::string result;
        for (std::size_t i = 0; pair.entry != nullptr && i < pair.entry->comments.size(); ++i) {
            result += note(pair.entry->comments[i], false);
        }
        bool const repeated =
            pair.entry != nullptr && pair.base != nullptr && pair.entry->comments == pair.base->comments;
        for (std::size_t i = 0; pair.base != nullptr && !repeated && i < pair.base->comments.size(); ++i) {
            result += note(pair.base->comments[i], true);
        }
        return version_ == 1 || result.empty() ? result : "<notes>" + result + "</notes>";
    }

    /// Tells whether an entry says that it is not to be translated.
    static bool is_fixed(catalog_entry const * entry) { return entry != nullptr && !is_translatable(*entry); }

    void add(entry_pair const & pair) {
        catalog_entry const & named = pair.entry != nullptr ? *pair.entry : *pair.base;
        i18n::ustring const original = original_text(named, pair.base);
        bool fuzzy = false;
        std::optional<i18n::ustring> translation;
        attributes tag;
        if (pair.entry != nullptr && !settings_.is_template) {
            translation = translation_of(named, fuzzy);
            tag = named.attributes;
            renew_source(tag, original);
        }
        std::string state = exchange_text(tag, "target-state").value_or(usual_state(version_, fuzzy));
        std::string entry;
        if (!tag.empty()) {
            std::vector<std::string> lines;
            embed_tag(lines, "entry", tag);
            entry = "<x:entry>" + xml::escape(lines.front()) + "</x:entry>";
        }
        ++count_;
        std::string const key = xml::escape(named.key);
        std::string const id = is_key(named.key) ? named.key : "u-" + std::to_string(count_);
        std::string const unit =
            "id=\"" + id + "\" " + (version_ == 1 ? "resname" : "name") + "=\"" + key + "\"" +
            (is_fixed(pair.entry) || is_fixed(pair.base) ? " translate=\"no\"" : "") + ">";
        std::string const source = "<source>" + to_xliff_content(original, version_, true) + "</source>";
        std::string const state_mark = " state=\"" + xml::escape(state) + "\"";
        std::string const target = translation
                                       ? "<target" + (version_ == 1 ? state_mark : "") + ">" +
                                             to_xliff_content(*translation, version_, true) + "</target>"
                                       : "";
        if (version_ == 1) {
            xml_ += "      <trans-unit " + unit + source + target + notes(pair) + entry + "</trans-unit>\n";
        } else {
            xml_ += "    <unit " + unit + entry + notes(pair) + "<segment" + (translation ? state_mark : "") +
                    ">" + source + target + "</segment></unit>\n";
        }
    }

    catalog const & contents_;
    export_settings const & settings_;
    int version_;
    std::string name_;
    std::string xml_;
    std::size_t count_ = 0;
};

/// Refuses what would not be the text of the entry.
void check_target(xliff_unit const & unit, std::string const & file, std::string const & document) {
    if (unit.segments > 1) {
        fail_at(file, document, unit.offset, "the unit has been cut into segments; join them to one");
    }
    if (unit.target && !unit.unknown_code.empty()) {
        fail_at(file, document, unit.target_begin,
                "the target of \"" + unit.name +
                    "\" has an element that is none of the source: " + unit.unknown_code);
    }
}

catalog_entry make_entry(catalog const & contents, xliff_unit const & unit, int version) {
    catalog_entry entry;
    entry.key = unit.name;
    entry.attributes = unit.tag.empty() ? attributes() : read_embedded({unit.tag}).tag;
    auto const translation = unit.translation();
    bool const fuzzy = translation && unit.needs_work();
    set_translation(entry, kept_original(contents, entry, unit.source), translation, fuzzy);
    if (!translation || unit.state.empty() || unit.state == usual_state(version, fuzzy)) {
        remove_attribute(entry.attributes, "x:target-state");
    } else {
        set_exchange_text(entry.attributes, "target-state", unit.state);
    }
    std::vector<std::string> others;
    for (std::string const & note : unit.notes) {
        if (fits_comment(note)) {
            entry.comments.push_back(note);
        } else {
            auto const lines = split(note, '\n');
            others.insert(others.end(), lines.begin(), lines.end());
        }
    }
    if (!others.empty()) {
        std::string const known = exchange_text(entry.attributes, "comments").value_or("");
        set_exchange_text(entry.attributes, "comments",
                          known + (known.empty() ? "" : "\n") + join_lines(others));
    }
    return entry;
}

} // namespace

catalog catalog_from_own_xliff(xliff_file const & xliff, std::string const & file,
                               std::string const & document, std::vector<std::string> & left_out) {
    for (auto const & [element, number] : xliff.other_elements) {
        left_out.push_back(std::to_string(number) + " \"" + element + "\"");
    }
    embedded const parts = read_embedded(split(*xliff.catalog_lines, '\n'));
    catalog result;
    result.instructions = parts.instructions;
    result.head_comments = parts.comments;
    result.attributes = parts.tag;
    result.tail_comments = parts.later_comments;
    std::set<std::string> known;
    for (xliff_unit const & unit : xliff.units) {
        if (unit.name.empty() || !known.insert(unit.name).second) {
            fail_at(file, document, unit.offset, "a unit without key, or with one that is there already");
        }
        check_target(unit, file, document);
        // What has neither a translation nor a mark is a message of the base alone.
        if (unit.translation() || unit.tag.find("x:state=") != std::string::npos) {
            result.entries.push_back(make_entry(result, unit, xliff.version));
        } else if (!unit.notes.empty()) {
            left_out.push_back("the notes on \"" + unit.name + "\", which has no translation");
        }
    }
    std::string const language = xliff.target_language;
    if (!language.empty() && language != to_language(result.attribute("locale"))) {
        std::string locale = language;
        std::replace(locale.begin(), locale.end(), '-', '_');
        set_attribute(result.attributes, {"locale", locale});
    }
    return result;
}

std::string own_xliff_from_catalog(catalog const & contents, export_settings const & settings, int version,
                                   std::string const & name) {
    return exporter(contents, settings, version, name).run();
}

} // namespace fl::tool
