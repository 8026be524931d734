#include "catalogs/catalog_file_loader.hpp"

#include "catalogs/catalog_event_handler.hpp"

namespace fl::i18n {

bool XMLCatalogFileLoader::load(filesystem::upath const & path,
                                std::shared_ptr<XMLCatalogDataStore> const & store) {
    MessageCatalogExpatEventHandler handler(*store);
    return parse_file(path, handler);
}

} // namespace fl::i18n
