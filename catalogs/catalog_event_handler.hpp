#pragma once

#include "catalogs/expat_event_handler.hpp"
#include "catalogs/message_text_processor.hpp"
#include "catalogs/xml_catalog_data_store.hpp"

#include <string>

namespace fl::i18n {

/// Reads a message catalog into a store. One object serves one file.
class MessageCatalogExpatEventHandler final : public ExpatEventHandler {
public:
    /// The store must outlive the handler.
    explicit MessageCatalogExpatEventHandler(XMLCatalogDataStore & store);

    bool start_element(char const * name, char const ** attributes) override;
    bool character_data(char const * text, std::size_t length) override;
    bool end_element(char const * name) override;

private:
    enum class state { in_catalog = 0, in_messages = 1, in_entries = 2, before_root = 3 };

    bool enter(state from, state to);
    bool start_entry(char const ** attributes);
    bool reads_text() const;

    XMLCatalogDataStore & store_;
    std::string key_;
    state state_ = state::before_root;
    detail::MessageCatalogTextProcessor text_;
};

} // namespace fl::i18n
