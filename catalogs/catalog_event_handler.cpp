#include "catalogs/catalog_event_handler.hpp"

#include "foundation/xml_reader.hpp"

#include <string_view>

namespace fl::i18n {

MessageCatalogExpatEventHandler::MessageCatalogExpatEventHandler(XMLCatalogDataStore & store)
    : store_(store) {}

bool MessageCatalogExpatEventHandler::start_element(char const * name, char const ** attributes) {
    std::string_view const element = name;
    if (element == "rsccat") {
        return enter(state::before_root, state::in_catalog);
    }
    if (element == "message") {
        return enter(state::in_catalog, state::in_messages);
    }
    return element == "entry" && start_entry(attributes);
}

bool MessageCatalogExpatEventHandler::character_data(char const * text, std::size_t length) {
    if (reads_text()) {
        text_.add_chunk({text, length});
    }
    return true;
}

bool MessageCatalogExpatEventHandler::end_element(char const * name) {
    using namespace std::string_view_literals;
    if (name != "entry"sv) {
        return true;
    }
    // Without a key: the attribute was missing or empty, or an entry inside this one has used it up.
    if (!reads_text() || !store_.add(key_, text_.extract_complete_message())) {
        return false;
    }
    key_.clear();
    return true;
}

bool MessageCatalogExpatEventHandler::enter(state from, state to) {
    if (state_ != from) {
        return false;
    }
    state_ = to;
    return true;
}

bool MessageCatalogExpatEventHandler::start_entry(char const ** attributes) {
    if (state_ != state::in_messages && state_ != state::in_entries) {
        return false;
    }
    state_ = state::in_entries;
    char const * const key = xml::find_attribute(attributes, "key");
    key_ = key == nullptr ? "" : key;
    return true;
}

bool MessageCatalogExpatEventHandler::reads_text() const {
    return state_ == state::in_entries && !key_.empty();
}

} // namespace fl::i18n
