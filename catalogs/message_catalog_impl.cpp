#include "catalogs/message_catalog_impl.hpp"

#include "catalogs/identifier_access.hpp"
#include "catalogs/message_formatting.hpp"

#include <boost/throw_exception.hpp>
#include <utility>

namespace fl::i18n {

MessageCatalogImpl::MessageCatalogImpl(std::string id, filesystem::upath path, bool classic_default,
                                       std::string locale)
    : id_(std::move(id))
    , path_(std::move(path))
    , classic_default_(classic_default)
    , locale_(std::move(locale)) {}

ustring MessageCatalogImpl::message(MessageID const & id) const {
    auto const [catalog, key] = detail::identifier_access::parts(id);
    if (catalog != id_) {
        boost::throw_exception(MessageNotFound(id_, std::string(key)));
    }
    return format_message(find_text(texts(), id_, key));
}

ustring MessageCatalogImpl::text(std::string const & key) const {
    return ustring(find_text(texts(), id_, key));
}

std::vector<std::string> MessageCatalogImpl::keys() const {
    return store_ ? store_->keys() : std::vector<std::string>();
}

void MessageCatalogImpl::load(MessageCatalogFileLoader & loader, message_pool & pool) {
    auto store = std::make_shared<XMLCatalogDataStore>();
    if (loader.load(path_, store)) {
        store->seal(pool);
        store_ = std::move(store);
    }
}

void throw_no_text(message_texts texts, std::string_view catalog, std::string_view key) {
    if (!texts) {
        boost::throw_exception(MessageCatalog::MessageCatalogLoadFailed(std::string(catalog)));
    }
    boost::throw_exception(MessageCatalog::MessageNotFound(std::string(catalog), std::string(key)));
}

} // namespace fl::i18n
