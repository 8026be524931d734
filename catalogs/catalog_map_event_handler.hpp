#pragma once

#include "catalogs/expat_event_handler.hpp"

#include <fl/i18n/ustring_type.hpp>
#include <memory>
#include <set>
#include <vector>

namespace fl::i18n {

/// Reads the catalog names of a catalog map ("catalog_map.xml") into a set. One object serves one file.
class MetaInfoExpatEventHandler final : public ExpatEventHandler {
public:
    explicit MetaInfoExpatEventHandler(std::shared_ptr<std::set<ustring>> keys);

    bool start_element(char const * name, char const ** attributes) override;
    bool character_data(char const * text, std::size_t length) override;
    bool end_element(char const * name) override;

private:
    enum class state { in_map, in_entry };

    bool start_map();
    bool start_entry(char const ** attributes);

    std::vector<state> states_;
    std::shared_ptr<std::set<ustring>> keys_;
};

} // namespace fl::i18n
