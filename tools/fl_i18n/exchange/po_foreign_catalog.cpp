// PO files with keys made from their texts: each attribute of an entry is a part of the PO message.

#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/exchange/message_key.hpp"
#include "tools/fl_i18n/exchange/po_catalog.hpp"

#include <fl/i18n/ustring.hpp>
#include <map>
#include <utility>

namespace fl::tool {

namespace {

/// Returns what is shown for a form of an untranslated message, as by the rule of English.
std::string const & original(po_message const & message, std::size_t form) {
    return form > 0 ? *message.plural_id : message.id;
}

class importer {
public:
    importer(std::string const & file, std::string const & text)
        : file_(file)
        , text_(text) {
        result_.attributes = {{"version", "1.0"}, {"xmlns:x", exchange_namespace}};
        set_exchange_text(result_.attributes, "format", "po");
    }

    catalog run(po_file const & po) {
        for (po_message const & message : po.messages) {
            // A header in another place, or for a domain, stays there.
            if (message.is_header() && &message == &po.messages.front() && message.domain.empty()) {
                set_exchange_text(result_.attributes, "header", message.texts.front());
                add_comments(result_.attributes, message);
            } else if (message.obsolete || message.is_header()) {
                aside_.push_back(message);
            } else {
                add(message);
            }
        }
        add_aside(result_.attributes, "after", aside_, po.last_lines);
        return std::move(result_);
    }

private:
    void add(po_message const & message) {
        std::string const key = new_key(message);
        char const * const state = message.is_untranslated() ? "untranslated"
                                   : message.is_fuzzy()      ? "fuzzy"
                                                             : nullptr;
        for (std::size_t form = 0; form < message.texts.size(); ++form) {
            catalog_entry entry;
            entry.key = key;
            set_exchange_text(entry.attributes, "source", original(message, form));
            if (message.plural_id) {
                entry.key += "_" + std::to_string(form);
                add_form(entry.attributes, message, form);
            }
            std::string const & text = message.texts[form];
            if (state != nullptr) {
                set_exchange_text(entry.attributes, "state", state);
            }
            if (state != nullptr && !text.empty()) {
                set_exchange_text(entry.attributes, "draft", text);
            }
            if (form == 0) {
                add_rest(entry.attributes, message);
            }
            entry.text.units = i18n::utf8_to_ustring(state != nullptr ? original(message, form) : text);
            result_.entries.push_back(std::move(entry));
        }
    }

    std::string new_key(po_message const & message) {
        // A message of another domain is another message.
        std::optional<std::string> context = message.context;
        if (!message.domain.empty()) {
            context = context.value_or("") + '\0' + message.domain;
        }
        std::string key = make_key(context, message.id);
        auto const [known, is_new] = known_.try_emplace(key, message.offset);
        if (!is_new) {
            fail_at(file_, text_, message.offset,
                    "the message has the key of the one in line " +
                        std::to_string(source_text(text_).position_of(known->second).line) +
                        "; a message can be there once only");
        }
        return key;
    }

    static void add_form(attributes & to, po_message const & message, std::size_t form) {
        if (form == 0) {
            set_exchange_text(to, "plural", *message.plural_id);
        }
        set_exchange_text(to, "form", std::to_string(form));
    }

    void add_rest(attributes & to, po_message const & message) {
        if (message.context) {
            set_exchange_text(to, "context", *message.context);
        }
        if (!message.domain.empty()) {
            set_exchange_text(to, "domain", message.domain);
        }
        add_comments(to, message);
        add_aside(to, "before", std::exchange(aside_, {}), {});
    }

    std::string const & file_;
    std::string const & text_;
    catalog result_;
    std::map<std::string, std::size_t> known_;
    std::vector<po_message> aside_;
};

/// Begins a message with what its first entry holds.
po_message start_message(catalog_entry const & entry) {
    auto const id = exchange_text(entry.attributes, "source");
    if (!id) {
        throw command_failure(exit_input_output,
                              "the entry \"" + entry.key +
                                  "\" has no attribute x:source, which the entries of a catalog made "
                                  "from a PO file have");
    }
    po_message message;
    message.id = *id;
    message.plural_id = exchange_text(entry.attributes, "plural");
    message.context = exchange_text(entry.attributes, "context");
    message.domain = exchange_text(entry.attributes, "domain").value_or("");
    set_comments(message, entry.attributes);
    return message;
}

/// What the entries of a message tell of its translation.
struct message_state {
    bool translated = false; ///< one shows a translation
    bool edited = false;     ///< one got its translation in the catalog
    bool draft = false;      ///< one has a draft that must be looked at
};

/// Adds the text of an entry.
void add_text(po_message & message, message_state & total, catalog_entry const & entry) {
    bool const translated = !shows_original(entry);
    auto const state = exchange_text(entry.attributes, "state");
    message.texts.push_back(translated ? i18n::ustring_to_utf8(entry.text.units)
                                       : exchange_text(entry.attributes, "draft").value_or(""));
    total.translated |= translated;
    total.edited |= translated && state;
    total.draft |= !translated && state == "fuzzy";
}

} // namespace

catalog catalog_from_foreign_po(po_file const & po, std::string const & file, std::string const & text) {
    return importer(file, text).run(po);
}

po_file foreign_po_from_catalog(catalog const & contents) {
    po_file po;
    if (auto const header = exchange_text(contents.attributes, "header")) {
        po_message message;
        message.texts.push_back(*header);
        set_comments(message, contents.attributes);
        po.messages.push_back(message);
    }
    for (std::size_t i = 0; i < contents.entries.size();) {
        auto const aside = read_aside(contents.entries[i].attributes, "before").messages;
        po.messages.insert(po.messages.end(), aside.begin(), aside.end());
        po_message message = start_message(contents.entries[i]);
        message_state state;
        add_text(message, state, contents.entries[i++]);
        while (message.plural_id && i < contents.entries.size() &&
               exchange_text(contents.entries[i].attributes, "form") ==
                   std::to_string(message.texts.size())) {
            add_text(message, state, contents.entries[i++]);
        }
        if (state.draft && !state.edited) {
            set_fuzzy(message, true);
        } else if (state.translated) {
            set_fuzzy(message, false);
        }
        po.messages.push_back(message);
    }
    po_file const last = read_aside(contents.attributes, "after");
    po.messages.insert(po.messages.end(), last.messages.begin(), last.messages.end());
    po.last_lines = last.last_lines;
    return po;
}

} // namespace fl::tool
