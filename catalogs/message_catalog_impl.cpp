#include "catalogs/message_catalog_impl.hpp"

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
    if (id.getCatalogID() != id_) {
        boost::throw_exception(MessageNotFound(id_, id.getMsgKey()));
    }
    return GetFormattedMessage(text(id.getMsgKey()), {});
}

ustring MessageCatalogImpl::text(std::string const & key) const {
    if (!store_) {
        boost::throw_exception(MessageCatalogLoadFailed(id_));
    }
    icu::UnicodeString const * const found = store_->find(key);
    if (found == nullptr) {
        boost::throw_exception(MessageNotFound(id_, key));
    }
    return {found->getBuffer(), static_cast<std::size_t>(found->length())};
}

std::vector<std::string> MessageCatalogImpl::keys() const {
    return store_ ? store_->keys() : std::vector<std::string>();
}

void MessageCatalogImpl::load(MessageCatalogFileLoader & loader) {
    auto store = std::make_shared<XMLCatalogDataStore>();
    if (loader.load(path_, store)) {
        store_ = std::move(store);
    }
}

} // namespace fl::i18n
