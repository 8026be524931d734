#include <fl/i18n/catalog_id.hpp>

#include "catalogs/identifier_syntax.hpp"

#include <boost/throw_exception.hpp>
#include <utility>

namespace fl::i18n {

char const * const MessageID::badMsgException_ = "Bad Message ID";

char const * MessageID::badMessageIDException::what() const noexcept {
    return badMsgException_;
}

MessageID::MessageID() = default;

MessageID::MessageID(std::string const & compositeId) {
    setCompositeMsgID(compositeId);
}

MessageID::MessageID(CatalogID const & catalog, std::string const & key)
    : catalog_(catalog)
    , message_key_(key) {
    if (key.empty()) {
        boost::throw_exception(badMessageIDException());
    }
    composite_id_ = catalog.getComponentName() + ':' + catalog.getSubComponentsNames() + ':' + key;
}

void MessageID::setCompositeMsgID(std::string const & compositeId) {
    if (!compositeId.empty() && compositeId == composite_id_) {
        return;
    }
    MessageID changed;
    if (!detail::is_identifier(compositeId) || !changed.extractIDComponents(compositeId)) {
        boost::throw_exception(badMessageIDException());
    }
    changed.composite_id_ = compositeId;
    *this = std::move(changed);
}

std::string MessageID::getCompositeID() const {
    return composite_id_;
}

char const * MessageID::getCompositeIDstr() const {
    return composite_id_.c_str();
}

std::string MessageID::getCatalogID() const {
    return catalog_.getCatalogID();
}

std::string MessageID::getMsgKey() const {
    return message_key_;
}

bool MessageID::extractIDComponents(std::string const & compositeId) {
    auto const colon = compositeId.rfind(':');
    std::string catalog = compositeId.substr(0, colon);
    // What stands before the last colon of an identifier is one, too, when it has a colon itself.
    if (!catalog_.extractIDComponents(catalog, catalog_.component_name_, catalog_.sub_components_names_)) {
        return false;
    }
    catalog_.catalog_id_ = std::move(catalog);
    message_key_ = compositeId.substr(colon + 1);
    return true;
}

} // namespace fl::i18n
