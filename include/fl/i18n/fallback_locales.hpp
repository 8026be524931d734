#pragma once

#include <fl/i18n/export.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/ustring_type.hpp>

#include <vector>

namespace fl::i18n {

/// Returns the messages locale names under which resources of a locale are searched, most specific first.
///
/// These are the name itself, its language, and the classic locale's name as the default: "ja_JP", "ja",
/// "en_US_POSIX". The default does not follow an equal name. Any thread may call it.
FL_I18N_API std::vector<ustring> get_fallback_locales(QzLocale const & locale);

/// Returns the same list with the empty name, which stands for the unlocalised resource, as the default.
FL_I18N_API std::vector<ustring> get_fallback_locales_with_empty_default(QzLocale const & locale);

} // namespace fl::i18n
