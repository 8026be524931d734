// Catalogs of the PO files that the export of catalogs has made.

#include "tools/fl_i18n/exchange/po_catalog.hpp"
#include "tools/fl_i18n/exchange/po_embedding.hpp"
#include "tools/fl_i18n/exchange/po_own.hpp"

#include <fl/i18n/ustring.hpp>
#include <set>
#include <utility>

namespace fl::tool {

namespace {

class importer {
public:
    importer(std::string const & file, std::string const & text, std::vector<std::string> & left_out)
        : file_(file)
        , text_(text)
        , left_out_(left_out) {}

    catalog run(po_file const & po) {
        for (po_message const & message : po.messages) {
            if (message.is_header() && header_ == nullptr) {
                header_ = &message;
                set_root(message);
            } else if (message.obsolete || message.is_header()) {
                aside_.push_back(message);
            } else {
                add(message);
            }
        }
        std::string const & fields = header_->texts.front();
        if (fields != default_header(header_field(fields, "Language"))) {
            set_exchange_text(result_.attributes, "header", fields);
        }
        add_aside(result_.attributes, "after", aside_, po.last_lines);
        return std::move(result_);
    }

private:
    void set_root(po_message header) {
        embedded const parts = read_embedded(header.lines(po_comment::translator));
        result_.instructions = parts.instructions;
        result_.head_comments = parts.comments;
        result_.attributes = parts.tag;
        result_.tail_comments = parts.later_comments;
        header.lines(po_comment::translator) = parts.other_lines;
        add_comments(result_.attributes, header);
    }

    void add(po_message message) {
        check(message);
        embedded parts = read_embedded(message.lines(po_comment::translator));
        auto const * const tag_key = xml::find(parts.tag, "key");
        if (tag_key != nullptr && tag_key->value != *message.context) {
            parts.tag.clear(); // It came with the proposal from another message.
        }
        remove_attribute(parts.tag, "key");
        bool const escaped = remove_attribute(parts.tag, "x:escaped");
        bool const empty = remove_attribute(parts.tag, "x:empty");
        auto const decode = [&](std::string const & text) {
            i18n::ustring const units = i18n::utf8_to_ustring(text);
            return escaped ? unescape_text(units) : units;
        };
        bool const translated = empty || !message.is_untranslated();
        if (!translated && xml::find(parts.tag, "x:state") == nullptr) {
            // The language lacks the message.
            if (!parts.comments.empty() || !parts.other_lines.empty()) {
                left_out_.push_back("the comments on \"" + *message.context + "\", which has no translation");
            }
            return;
        }
        catalog_entry entry;
        entry.key = *message.context;
        entry.comments = parts.comments;
        entry.comments.insert(entry.comments.end(), parts.later_comments.begin(), parts.later_comments.end());
        entry.attributes = std::move(parts.tag);
        set_translation(entry, kept_original(result_, entry, decode(message.id)),
                        translated ? std::optional(decode(message.texts.front())) : std::nullopt,
                        message.is_fuzzy() && translated);
        message.lines(po_comment::translator) = parts.other_lines;
        message.lines(po_comment::extracted).clear();
        drop_own_flags(message);
        add_comments(entry.attributes, message);
        add_aside(entry.attributes, "before", std::exchange(aside_, {}), {});
        result_.entries.push_back(std::move(entry));
    }

    void check(po_message const & message) {
        if (!message.context || message.context->empty() || message.plural_id || !message.domain.empty()) {
            fail_at(
                file_, text_, message.offset,
                "the messages of a catalog have their keys as context and neither plural forms nor domains");
        }
        if (!known_.insert(*message.context).second) {
            fail_at(file_, text_, message.offset, "the key \"" + *message.context + "\" is there already");
        }
    }

    static void drop_own_flags(po_message & message) {
        std::string kept;
        for (std::string const & flag : message.flags()) {
            if (flag != "fuzzy" && flag != placeholder_flag) {
                kept += (kept.empty() ? "" : ", ") + flag;
            }
        }
        message.lines(po_comment::flags).clear();
        if (!kept.empty()) {
            message.lines(po_comment::flags).push_back(kept);
        }
    }

    std::string const & file_;
    std::string const & text_;
    std::vector<std::string> & left_out_;
    catalog result_;
    po_message const * header_ = nullptr;
    std::set<std::string> known_;
    std::vector<po_message> aside_;
};

} // namespace

catalog catalog_from_own_po(po_file const & po, std::string const & file, std::string const & text,
                            std::vector<std::string> & left_out) {
    return importer(file, text, left_out).run(po);
}

} // namespace fl::tool
