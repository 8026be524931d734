#include <fl/i18n/catalog_config.hpp>

#include <utility>

namespace fl::i18n::messagecatalog {

IConfig::~IConfig() = default;

bool IImmutableConfig::IsReadOnly() const {
    return true;
}

bool IMutableConfig::IsReadOnly() const {
    return false;
}

CriticalMessageCatalog::CriticalMessageCatalog(std::vector<CatalogID> ids)
    : ids_(std::move(ids)) {}

std::vector<CatalogID> const & CriticalMessageCatalog::GetCriticalCatalogIds() const {
    return ids_;
}

DoubleFormatProvider::DoubleFormatProvider(std::function<numeric_format()> provider)
    : provider_(std::move(provider)) {}

numeric_format DoubleFormatProvider::GetORBLANDoubleFormat() const {
    return provider_();
}

MessageSearchPath::MessageSearchPath(std::vector<ustring> const & paths)
    : paths_(paths) {}

std::vector<ustring> const & MessageSearchPath::GetSearchPaths() const {
    return paths_;
}

void MessageSearchPath::UpdateConfig(std::vector<ustring> const & paths) {
    paths_ = paths;
}

} // namespace fl::i18n::messagecatalog
