#include <resource_core/identifiers.hpp>

#include <utility>

namespace resource_core {

BaseCatalogID::BaseCatalogID(std::string id)
    : id_(std::move(id)) {}

std::string BaseCatalogID::getCatalogID() const {
    return id_;
}

BaseMsgID::BaseMsgID(std::string id)
    : id_(std::move(id)) {}

std::string BaseMsgID::getCompositeID() const {
    return id_;
}

std::string makeInternalCatalogName(std::string const & id) {
    return id;
}

} // namespace resource_core
