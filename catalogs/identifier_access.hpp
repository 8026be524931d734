#pragma once

#include "catalogs/identifier_syntax.hpp"

#include <fl/i18n/catalog_id.hpp>
#include <resource_core/identifiers.hpp>

#include <string_view>

namespace fl::i18n::detail {

/// Views of the texts inside identifiers, without a copy.
struct identifier_access {
    /// Both parts come out of the one composite text, so that a look-up reads little memory.
    static message_id_parts parts(MessageID const & id) {
        std::size_t const catalog_size = id.catalog_.catalog_id_.size();
        if (catalog_size == 0) {
            return {{}, id.message_key_};
        }
        std::string_view const composite = id.composite_id_;
        return {composite.substr(0, catalog_size), composite.substr(catalog_size + 1)};
    }
    static std::string_view text(CatalogID const & id) { return id.catalog_id_; }
    static std::string_view text(resource_core::BaseMsgID const & id) { return id.id_; }
};

} // namespace fl::i18n::detail
