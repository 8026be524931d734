#pragma once

#include <fl/i18n/export.hpp>
#include <fl/i18n/locale.hpp>

#include <cstddef>
#include <string_view>

namespace fl::i18n {

/// Says how texts are compared: which differences of case and of normalisation count, and by whose rules.
///
/// An immutable value; any thread may use it.
class FL_I18N_API character_handling_mode_context {
public:
    /// The bits of a mode. They can be combined; 4 means nothing without 2.
    enum mode_bits : unsigned {
        default_mode = 0,              ///< UTF-16 units as they are
        case_insensitive_mode = 1,     ///< full default case folding
        normalized_compose_mode = 2,   ///< both texts in NFC
        normalized_decompose_mode = 6, ///< both texts in NFD
        locale_mode = 8,               ///< folds case as the locale's ctype category asks: Turkic i
        /// Canonically equivalent texts are equal: both in NFD, unless 2 asks for a form.
        normalization_insensitive_mode = 16
    };

    /// Makes a mode for the locale that is the global one at this moment.
    ///
    /// Throws `CtypeInvalidArgument` for a mode of 32 or more.
    character_handling_mode_context(unsigned mode = default_mode);
    /// Makes a mode for a locale, which must live as long as the mode and its copies are used.
    ///
    /// Throws `CtypeInvalidArgument` for a mode of 32 or more.
    character_handling_mode_context(unsigned mode, QzLocale const & locale);

    /// Returns the bits.
    unsigned mode() const noexcept;
    /// Returns the locale.
    QzLocale const & locale() const noexcept;

private:
    unsigned mode_;
    QzLocale const * locale_;
};

namespace detail {

/// Compares two texts under a mode: negative, 0 or positive.
///
/// The order is that of the UTF-16 units of what the mode makes of each text. Where case and normalisation
/// both are at stake, that is the text in NFD, then folded, then in the form asked for. Lone surrogates stay
/// as they are. Lengths are in UTF-16 units; a null pointer with the length 0 is the empty text. Any thread
/// may call it. Throws `CtypeSizeTooLarge` when a length exceeds 0x7fffffff and `CtypeStrCompFailure` when
/// the conversion library fails.
FL_I18N_API int compare(char16_t const * a, std::size_t a_length, char16_t const * b, std::size_t b_length,
                        character_handling_mode_context const & mode);
/// Compares two texts under a mode, as the function for pointers does.
FL_I18N_API int compare(std::u16string_view a, std::u16string_view b,
                        character_handling_mode_context const & mode);

} // namespace detail

} // namespace fl::i18n
