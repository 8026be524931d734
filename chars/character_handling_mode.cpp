#include <boost/throw_exception.hpp>
#include <fl/i18n/character_handling_mode.hpp>
#include <fl/i18n/ctype.hpp>

namespace fl::i18n {

namespace {

constexpr unsigned mode_limit = 32;

} // namespace

character_handling_mode_context::character_handling_mode_context(unsigned mode)
    : character_handling_mode_context(mode, QzLocale::global()) {}

character_handling_mode_context::character_handling_mode_context(unsigned mode, QzLocale const & locale)
    : mode_(mode)
    , locale_(&locale) {
    if (mode >= mode_limit) {
        boost::throw_exception(CtypeInvalidArgument());
    }
}

unsigned character_handling_mode_context::mode() const noexcept {
    return mode_;
}

QzLocale const & character_handling_mode_context::locale() const noexcept {
    return *locale_;
}

} // namespace fl::i18n
