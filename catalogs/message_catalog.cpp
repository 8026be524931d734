#include <fl/i18n/message_catalog.hpp>

#include "catalogs/catalog_service.hpp"
#include "catalogs/identifier_access.hpp"
#include "catalogs/identifier_syntax.hpp"
#include "catalogs/message_formatting.hpp"

#include <boost/throw_exception.hpp>
#include <fl/i18n/catalog_config.hpp>

namespace fl::i18n {

using resource_core::BaseCatalogID;
using resource_core::BaseMsgID;

namespace {

ustring find_message(std::string_view catalog, std::string_view key, QzLocale const & locale) {
    message_texts const texts = process_catalog_service().get_texts(catalog, locale);
    return format_message(find_text(texts, catalog, key));
}

} // namespace

MessageCatalog::MessageCatalog() = default;

MessageCatalog::~MessageCatalog() = default;

bool MessageCatalog::MessageCatalogInit(ustring const & root) {
    return MessageCatalogInit(std::vector{root});
}

bool MessageCatalog::MessageCatalogInit(std::vector<ustring> const & roots) {
    return process_catalog_service().initialise(roots);
}

bool MessageCatalog::MessageCatalogInit(std::vector<ustring> const & roots,
                                        std::vector<BaseCatalogID const *> const & criticalCatalogs) {
    return process_catalog_service().initialise(roots, [&criticalCatalogs] {
        std::vector<std::string> ids;
        for (BaseCatalogID const * const id : criticalCatalogs) {
            if (id == nullptr) {
                boost::throw_exception(CatalogID::badCatalogIDException());
            }
            ids.push_back(
                CatalogID(resource_core::makeInternalCatalogName(id->getCatalogID())).getCatalogID());
        }
        return ids;
    });
}

bool MessageCatalog::MessageCatalogInit(ustring const & root,
                                        std::vector<BaseCatalogID const *> const & criticalCatalogs) {
    return MessageCatalogInit(std::vector{root}, criticalCatalogs);
}

bool MessageCatalog::MessageCatalogInitFromConfigManager() {
    auto const & registry = messagecatalog::ConfigurationManagerFactory::Get();
    auto const search_path = registry.GetSearchPath();
    auto const critical = registry.FindCriticalCatalogs();
    return process_catalog_service().initialise(search_path.GetSearchPaths(), [&critical] {
        std::vector<std::string> ids;
        if (critical) {
            for (CatalogID const & id : critical->GetCriticalCatalogIds()) {
                ids.push_back(id.getCatalogID());
            }
        }
        return ids;
    });
}

boost::shared_ptr<MessageCatalog const> MessageCatalog::GetMessageCatalog(CatalogID const & id,
                                                                          QzLocale const & locale) {
    return process_catalog_service().get_catalog(detail::identifier_access::text(id), locale);
}

boost::shared_ptr<MessageCatalog const> MessageCatalog::GetMessageCatalog(CatalogID const & id) {
    return GetMessageCatalog(id, QzLocale::global());
}

boost::shared_ptr<MessageCatalog const> MessageCatalog::openCatalog(BaseCatalogID const & id,
                                                                    QzLocale const & locale) {
    return GetMessageCatalog(resource_core::makeInternalCatalogName(id.getCatalogID()), locale);
}

boost::shared_ptr<MessageCatalog const> MessageCatalog::openCatalog(BaseCatalogID const & id) {
    return openCatalog(id, QzLocale::global());
}

// Without arguments there is nothing for the format to write.
ustring MessageCatalog::get_message(BaseMsgID const & id, QzLocale const & locale,
                                    std::optional<numeric_format> const &) {
    auto const parts = detail::split_message_id(detail::identifier_access::text(id));
    if (!parts) {
        boost::throw_exception(MessageID::badMessageIDException());
    }
    return find_message(parts->catalog, parts->key, locale);
}

ustring MessageCatalog::get_message(BaseMsgID const & id) {
    return get_message(id, QzLocale::global(), std::nullopt);
}

ustring MessageCatalog::get_message(MessageID const & id, QzLocale const & locale) {
    auto const [catalog, key] = detail::identifier_access::parts(id);
    return find_message(catalog, key, locale);
}

ustring MessageCatalog::get_message(MessageID const & id) {
    return get_message(id, QzLocale::global());
}

ustring MessageCatalog::get_default_locale_message(BaseMsgID const & id) {
    return get_message(id, QzLocale::classic(), std::nullopt);
}

void MessageCatalog::FlushCatalogFromCache(CatalogID const & id) {
    process_catalog_service().flush(detail::identifier_access::text(id));
}

void MessageCatalog::set_additional_resource_locations(std::vector<ustring> const & locations) {
    process_catalog_service().set_additional_locations(locations);
}

void MessageCatalog::remove_additional_resource_location(ustring const & location) {
    process_catalog_service().remove_additional_location(location);
}

} // namespace fl::i18n
