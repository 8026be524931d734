#include "tools/fl_i18n/exchange/po_catalog.hpp"

#include "tools/fl_i18n/split.hpp"

#include <utility>

namespace fl::tool {

namespace {

constexpr std::string_view comment_names[po_comment_kinds] = {"comments", "extracted", "references", "flags",
                                                              "previous"};

po_message const * find_header(po_file const & po) {
    for (po_message const & message : po.messages) {
        if (message.is_header()) {
            return &message;
        }
    }
    return nullptr;
}

} // namespace

void add_comments(attributes & to, po_message const & message) {
    for (std::size_t kind = 0; kind < po_comment_kinds; ++kind) {
        if (!message.comments[kind].empty()) {
            set_exchange_text(to, comment_names[kind], join_lines(message.comments[kind]));
        }
    }
}

void set_comments(po_message & message, attributes const & from) {
    for (std::size_t kind = 0; kind < po_comment_kinds; ++kind) {
        if (auto const text = exchange_text(from, comment_names[kind])) {
            message.comments[kind] = split(*text, '\n');
        }
    }
}

void add_aside(attributes & to, std::string_view name, std::vector<po_message> const & messages,
               std::vector<std::string> const & lines) {
    std::string text = write_messages(messages);
    if (!lines.empty()) {
        text += join_lines(lines) + "\n";
    }
    if (!text.empty()) {
        set_exchange_text(to, name, text);
    }
}

po_file read_aside(attributes const & from, std::string_view name) {
    return read_po("attribute x:" + std::string(name), exchange_text(from, name).value_or(""), "UTF-8");
}

void set_fuzzy(po_message & message, bool fuzzy) {
    if (message.is_fuzzy() == fuzzy) {
        return;
    }
    auto & lines = message.lines(po_comment::flags);
    std::string flags = fuzzy ? "fuzzy" : "";
    for (std::string const & flag : message.flags()) {
        flags += flag == "fuzzy" ? "" : (flags.empty() ? "" : ", ") + flag;
    }
    if (!lines.empty()) {
        lines.pop_back();
    }
    if (!flags.empty()) {
        lines.push_back(flags);
    }
}

catalog catalog_from_po(po_file const & po, std::optional<std::string> const & locale,
                        std::string const & file, std::string const & text,
                        std::vector<std::string> & left_out) {
    po_message const * const header = find_header(po);
    std::string const fields = header != nullptr ? header->texts.front() : std::string();
    bool const is_own = !header_field(fields, own_po_field).empty();
    catalog result =
        is_own ? catalog_from_own_po(po, file, text, left_out) : catalog_from_foreign_po(po, file, text);
    std::string const language = locale.value_or(header_field(fields, "Language"));
    if (!language.empty()) {
        set_attribute(result.attributes, {"locale", language});
    }
    declare_exchange_namespace(result);
    return result;
}

bool is_foreign_po(catalog const & contents) {
    return exchange_text(contents.attributes, "format") == "po";
}

po_file po_from_catalog(catalog const & contents, export_settings const & settings) {
    return is_foreign_po(contents) ? foreign_po_from_catalog(contents)
                                   : own_po_from_catalog(contents, settings);
}

} // namespace fl::tool
