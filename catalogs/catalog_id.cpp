#include <fl/i18n/catalog_id.hpp>

#include "catalogs/identifier_syntax.hpp"

#include <boost/throw_exception.hpp>
#include <utility>

namespace fl::i18n {

char const * const CatalogID::badCatException_ = "Bad Catalog ID";

char const * CatalogID::badCatalogIDException::what() const noexcept {
    return badCatException_;
}

CatalogID::CatalogID() = default;

CatalogID::CatalogID(std::string const & id) {
    setCatalogID(id);
}

void CatalogID::setCatalogID(std::string const & id) {
    if (!id.empty() && id == catalog_id_) {
        return;
    }
    CatalogID changed;
    if (!detail::is_identifier(id) ||
        !extractIDComponents(id, changed.component_name_, changed.sub_components_names_)) {
        boost::throw_exception(badCatalogIDException());
    }
    changed.catalog_id_ = id;
    *this = std::move(changed);
}

std::string CatalogID::getCatalogID() const {
    return catalog_id_;
}

char const * CatalogID::getCatalogIDStr() const {
    return catalog_id_.c_str();
}

std::string CatalogID::getComponentName() const {
    return component_name_;
}

std::string CatalogID::getSubComponentsNames() const {
    return sub_components_names_;
}

bool CatalogID::extractIDComponents(std::string const & id, std::string & component,
                                    std::string & subcomponents) {
    auto const colon = id.find(':');
    if (colon == std::string::npos) {
        return false;
    }
    component = id.substr(0, colon);
    subcomponents = id.substr(colon + 1);
    return !component.empty() && !subcomponents.empty();
}

} // namespace fl::i18n
