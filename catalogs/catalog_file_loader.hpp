#pragma once

#include "catalogs/xml_catalog_data_store.hpp"

#include <fl/filesystem/path.hpp>
#include <memory>

namespace fl::i18n {

/// Loads catalog files.
class MessageCatalogFileLoader {
public:
    /// Loads a file into a store. Returns false when the file is missing or not valid; the store then holds
    /// what was read before the failure.
    virtual bool load(filesystem::upath const & path, std::shared_ptr<XMLCatalogDataStore> const & store) = 0;

protected:
    ~MessageCatalogFileLoader() = default;
};

/// Loads XML catalog files.
class XMLCatalogFileLoader final : public MessageCatalogFileLoader {
public:
    bool load(filesystem::upath const & path, std::shared_ptr<XMLCatalogDataStore> const & store) override;
};

} // namespace fl::i18n
