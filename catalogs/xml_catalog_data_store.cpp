#include "catalogs/xml_catalog_data_store.hpp"

#include <limits>
#include <utility>

namespace fl::i18n {

bool XMLCatalogDataStore::add(std::string const & key, std::string const & text) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        return false;
    }
    auto converted = icu::UnicodeString::fromUTF8(text);
    // The unescaped copy is stored: it has no spare room, while the conversion leaves up to twice what it
    // fills.
    auto unescaped = converted.unescape();
    if (converted.isBogus() || unescaped.isBogus()) {
        return false;
    }
    texts_.emplace(key, std::move(unescaped));
    return true;
}

XMLCatalogDataStore::~XMLCatalogDataStore() = default;

icu::UnicodeString const * XMLCatalogDataStore::find(std::string const & key) const {
    auto const position = texts_.find(key);
    return position == texts_.end() ? nullptr : &position->second;
}

std::vector<std::string> XMLCatalogDataStore::keys() const {
    std::vector<std::string> result;
    result.reserve(texts_.size());
    for (auto const & [key, text] : texts_) {
        result.push_back(key);
    }
    return result;
}

} // namespace fl::i18n
