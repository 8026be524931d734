#include <fl/i18n/ctype.hpp>

namespace fl::i18n {

CtypeExceptionBase::CtypeExceptionBase(char const * msg_id, char const * text, ctype_excp_id id)
    : msg_id_(msg_id)
    , text_(text)
    , id_(id) {}
CtypeExceptionBase::~CtypeExceptionBase() = default;
char const * CtypeExceptionBase::what() const noexcept {
    return text_.c_str();
}
ctype_excp_id CtypeExceptionBase::get_excp_id() const noexcept {
    return id_;
}
std::string CtypeExceptionBase::getMsgId() const {
    return msg_id_;
}

CtypeSizeTooLarge::CtypeSizeTooLarge()
    : CtypeExceptionBase("fl:i18n:CtypeSizeTooLarge", "Data size too large.", ctype_excp_size_too_large) {}
CtypeSizeTooLarge::~CtypeSizeTooLarge() = default;

CtypeTransformFailure::CtypeTransformFailure(int error_code)
    : CtypeExceptionBase("fl:i18n:CtypeTransformFailure", "Transformation failure.",
                         ctype_excp_transform_failure)
    , error_code_(error_code) {}
CtypeTransformFailure::~CtypeTransformFailure() = default;
int CtypeTransformFailure::getErrorCode() const noexcept {
    return error_code_;
}

CtypeStrCompFailure::CtypeStrCompFailure()
    : CtypeExceptionBase("fl:i18n:CtypeStrCompFailure", "String comparison failure.",
                         ctype_excp_str_comp_failure) {}
CtypeStrCompFailure::~CtypeStrCompFailure() = default;

CtypeInvalidArgument::CtypeInvalidArgument()
    : CtypeExceptionBase("fl:i18n:CtypeInvalidArgument", "Invalid argument error.",
                         ctype_excp_invalid_argument) {}
CtypeInvalidArgument::~CtypeInvalidArgument() = default;

} // namespace fl::i18n
