#include <fl/i18n/converter.hpp>

namespace fl::i18n {

CvtExceptionBase::CvtExceptionBase(char const * text, codecvt_excp_id id)
    : text_(text)
    , id_(id) {}
CvtExceptionBase::~CvtExceptionBase() = default;
char const * CvtExceptionBase::what() const noexcept {
    return text_.c_str();
}
codecvt_excp_id CvtExceptionBase::get_excp_id() const noexcept {
    return id_;
}

CvtInvalidArgument::CvtInvalidArgument()
    : CvtExceptionBase("fl:i18n:CvtInvalidArgument", codecvt_excp_invalid_argument) {}
CvtInvalidArgument::~CvtInvalidArgument() = default;

CvtInvalidEncodingName::CvtInvalidEncodingName(std::string const & encoding)
    : CvtExceptionBase("Invalid encoding name specified.", codecvt_excp_invalid_encoding_name)
    , encoding_(encoding) {}
CvtInvalidEncodingName::~CvtInvalidEncodingName() = default;
std::string CvtInvalidEncodingName::getEncoding() const {
    return encoding_;
}

CvtCallBackSettingFailure::CvtCallBackSettingFailure()
    : CvtExceptionBase("fl:i18n:CvtCallBackSettingFailure", codecvt_excp_call_back_setting_failure) {}
CvtCallBackSettingFailure::~CvtCallBackSettingFailure() = default;

CvtNonSupportedMode::CvtNonSupportedMode()
    : CvtExceptionBase("fl:i18n:CvtNonSupportedMode", codecvt_excp_non_supported_mode) {}
CvtNonSupportedMode::~CvtNonSupportedMode() = default;

CvtInvalidCharacter::CvtInvalidCharacter()
    : CvtExceptionBase("Invalid character code sequence detected.", codecvt_excp_invalid_character) {}
CvtInvalidCharacter::~CvtInvalidCharacter() = default;

CvtSizeTooLarge::CvtSizeTooLarge()
    : CvtExceptionBase("Data size too large for character code conversion.", codecvt_excp_size_too_large) {}
CvtSizeTooLarge::~CvtSizeTooLarge() = default;

CvtConversionFailure::CvtConversionFailure()
    : CvtExceptionBase("Failed to convert character code.", codecvt_excp_conversion_failure) {}
CvtConversionFailure::~CvtConversionFailure() = default;

CvtCloneFailure::CvtCloneFailure()
    : CvtExceptionBase("Failed to make a converter clone.", codecvt_excp_clone_failure) {}
CvtCloneFailure::~CvtCloneFailure() = default;

} // namespace fl::i18n
