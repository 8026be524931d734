#include "foundation/ascii.hpp"
#include "foundation/process_singleton.hpp"

#include <fl/i18n/fallback_locales.hpp>
#include <memory>
#include <utility>

namespace fl::i18n {

namespace {

constinit process_singleton<ustring> classic_default;

ustring messages_name(QzLocale const & locale) {
    return ascii::widen(locale.getLcName(QzLocale::LcCategory::messages));
}

std::vector<ustring> make_chain(QzLocale const & locale, ustring const & last) {
    std::vector<ustring> chain{messages_name(locale)};
    if (std::size_t const underscore = chain.front().find(u'_'); underscore != ustring::npos) {
        chain.push_back(chain.front().substr(0, underscore));
    }
    if (chain.back() != last) {
        chain.push_back(last);
    }
    return chain;
}

} // namespace

std::vector<ustring> get_fallback_locales(QzLocale const & locale) {
    return make_chain(locale, classic_default.get([] {
        return std::make_unique<ustring>(messages_name(QzLocale::classic()));
    }));
}

std::vector<ustring> get_fallback_locales_with_empty_default(QzLocale const & locale) {
    return make_chain(locale, {});
}

} // namespace fl::i18n
