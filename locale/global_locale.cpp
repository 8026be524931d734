#include "locale/qz_locale_ctx.hpp"

#include <fl/i18n/locale.hpp>

namespace fl::i18n {

using lcmgmt::QzLocaleCtx;

void change_global_locale(QzLocale const & locale) {
    QzLocaleCtx::get().change_global_locale(records_of(locale));
}

void lock_global_locale_setting() {
    QzLocaleCtx::get().lock_global_locale_setting();
}

bool set_lc_messages(std::string const & name) {
    return QzLocaleCtx::get().set_lc_messages(name);
}

void disable_l10n_resource() {
    QzLocaleCtx::get().disable_l10n_resource();
}

bool get_l10n_resource_status() {
    return QzLocaleCtx::get().get_l10n_resource_status();
}

namespace experimental {

bool set_global_locale(std::string const & name) {
    return QzLocaleCtx::get().set_global_locale(name);
}

} // namespace experimental

} // namespace fl::i18n
