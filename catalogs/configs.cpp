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
    // Assigning would leave some of the old paths behind when there is no memory for all.
    std::vector<ustring>(paths).swap(paths_);
}

} // namespace fl::i18n::messagecatalog
