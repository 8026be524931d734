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

icu_converter clone_process_converter() {
    UConverter const * const kept = QzLocaleCtx::get().process_converter();
    if (kept == nullptr) {
        return nullptr;
    }
    UErrorCode status = U_ZERO_ERROR;
    icu_converter clone(ucnv_clone(kept, &status));
    return U_FAILURE(status) ? nullptr : std::move(clone);
}

} // namespace fl::i18n::lcmgmt
