#include "locale/encodings.hpp"

#include "locale/qz_locale_ctx.hpp"

namespace fl::i18n::lcmgmt {

std::string find_standard_encoding_name(std::string_view name) {
    return QzLocaleCtx::get().find_standard_encoding_name(name);
}

std::string normalize_encoding_name(std::string const & name) {
    std::string standard = find_standard_encoding_name(name);
    return standard.empty() ? name : standard;
}

icu_converter open_encoding(std::string const & name) {
    return QzLocaleCtx::get().open_encoding(name);
}

kept_encoding const * find_encoding(std::string const & name) {
    return QzLocaleCtx::get().find_encoding(name);
}

kept_encoding const * process_encoding() {
    return QzLocaleCtx::get().process_encoding();
}

std::string const & terminal_input_encoding() {
    return QzLocaleCtx::get().terminal_input_encoding();
}

std::string const & terminal_output_encoding() {
    return QzLocaleCtx::get().terminal_output_encoding();
}

} // namespace fl::i18n::lcmgmt
