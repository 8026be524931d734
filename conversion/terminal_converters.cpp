#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/locale.hpp>
#include <variant>

namespace fl::i18n {

namespace {

template <class Converter>
std::unique_ptr<Converter> open_terminal(LcOptDataType item) {
    return std::make_unique<Converter>(std::get<std::string>(QzLocale::global().getOptData(item)), true);
}

} // namespace

std::unique_ptr<converter<char16_t, char> const> create_codecvt_terminal_to_ustring() {
    return open_terminal<codecvt_string_to_ustring>(LcOptDataType::termencoding);
}

std::unique_ptr<converter<char16_t, char> const> create_codecvt_terminal_input_to_ustring() {
    return open_terminal<codecvt_string_to_ustring>(LcOptDataType::terminputencoding);
}

std::unique_ptr<converter<char, char16_t> const> create_codecvt_ustring_to_terminal() {
    return open_terminal<codecvt_ustring_to_string>(LcOptDataType::termencoding);
}

std::unique_ptr<converter<char, char16_t> const> create_codecvt_ustring_to_terminal_output() {
    return open_terminal<codecvt_ustring_to_string>(LcOptDataType::termoutputencoding);
}

} // namespace fl::i18n
