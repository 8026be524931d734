#include <fl/i18n/locale.hpp>

#include <utility>

namespace fl::i18n {

QzLcMgmtExceptionBase::QzLcMgmtExceptionBase(char const * msg_id, char const * msg_text,
                                             std::string locale_name, QzLcExcpId id)
    : msg_id_(msg_id)
    , msg_text_(msg_text)
    , locale_name_(std::move(locale_name))
    , id_(id) {}

QzLcMgmtExceptionBase::~QzLcMgmtExceptionBase() = default;
QzLcMgmtExceptionBase::QzLcMgmtExceptionBase(QzLcMgmtExceptionBase const &) = default;
QzLcMgmtExceptionBase & QzLcMgmtExceptionBase::operator=(QzLcMgmtExceptionBase const &) = default;

char const * QzLcMgmtExceptionBase::what() const noexcept {
    return msg_text_.c_str();
}

std::string QzLcMgmtExceptionBase::getMsgId() const {
    return msg_id_;
}

std::string QzLcMgmtExceptionBase::getMsgText() const {
    return msg_text_;
}

std::string QzLcMgmtExceptionBase::getLocaleName() const {
    return locale_name_;
}

QzLcExcpId QzLcMgmtExceptionBase::get_excp_id() const noexcept {
    return id_;
}

QzLcInvLcName::QzLcInvLcName(std::string locale_name)
    : QzLcMgmtExceptionBase("fl:i18n:QzLcInvLcName", "Invalid locale name.", std::move(locale_name),
                            QzLcExcpId::invalid_locale_name) {}

QzLcDataNotFound::QzLcDataNotFound(std::string locale_name)
    : QzLcMgmtExceptionBase("fl:i18n:QzLcDataNotFound", "Locale data not found.", std::move(locale_name),
                            QzLcExcpId::data_not_found) {}

QzLcInvLcCategory::QzLcInvLcCategory(std::string category_name)
    : QzLcMgmtExceptionBase("fl:i18n:QzLcInvLcCategory", "Invalid locale category.", std::move(category_name),
                            QzLcExcpId::invalid_category) {}

QzLcInvLcArgument::QzLcInvLcArgument(std::string argument)
    : QzLcMgmtExceptionBase("fl:i18n:QzLcInvLcArgument", "Invalid argument.", std::move(argument),
                            QzLcExcpId::invalid_argument) {}

} // namespace fl::i18n
