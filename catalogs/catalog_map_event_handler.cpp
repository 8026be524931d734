#include "catalogs/catalog_map_event_handler.hpp"

#include "foundation/xml_reader.hpp"

#include <fl/i18n/ustring.hpp>
#include <string_view>
#include <utility>

namespace fl::i18n {

MetaInfoExpatEventHandler::MetaInfoExpatEventHandler(std::shared_ptr<std::set<ustring>> keys)
    : keys_(std::move(keys)) {}

bool MetaInfoExpatEventHandler::start_element(char const * name, char const ** attributes) {
    std::string_view const element = name;
    if (element == "MessageCatalogMap") {
        return start_map();
    }
    return element == "entry" && start_entry(attributes);
}

bool MetaInfoExpatEventHandler::character_data(char const *, std::size_t) {
    return true;
}

bool MetaInfoExpatEventHandler::end_element(char const *) {
    states_.pop_back();
    return true;
}

bool MetaInfoExpatEventHandler::start_map() {
    if (!states_.empty()) {
        return false;
    }
    states_.push_back(state::in_map);
    return true;
}

bool MetaInfoExpatEventHandler::start_entry(char const ** attributes) {
    if (states_.empty() || states_.back() != state::in_map) {
        return false;
    }
    states_.push_back(state::in_entry);
    if (char const * const key = xml::find_attribute(attributes, "key")) {
        keys_->insert(utf8_to_ustring(key));
    }
    return true;
}

} // namespace fl::i18n
