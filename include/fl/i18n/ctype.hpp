#pragma once

#include <fl/i18n/character_handling_mode.hpp>
#include <fl/i18n/export.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/ustring_type.hpp>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <string>
#include <string_view>

// MinGW's <string.h> defines macros of these names.
#undef strcasecmp
#undef strncasecmp

namespace fl::i18n {

/// Identifies an exception of the character family.
enum ctype_excp_id : std::int32_t {
    ctype_excp_size_too_large = 0,
    ctype_excp_transform_failure = 1,
    ctype_excp_str_comp_failure = 2,
    ctype_excp_invalid_argument = 4,
};

/// The base of all exceptions that the handling of characters throws.
///
/// They are thrown through Boost's exception wrapper: each can also be caught as `boost::exception` and
/// carried to another thread by `boost::exception_ptr`.
class FL_I18N_API CtypeExceptionBase : public std::exception {
public:
    /// Takes the identifier, the text and the kind of a derived class.
    CtypeExceptionBase(char const * msg_id, char const * text, ctype_excp_id id);
    ~CtypeExceptionBase() override;

    /// Returns the fixed English text of the exception's class.
    char const * what() const noexcept override;
    /// Returns the numeric kind of the exception.
    ctype_excp_id get_excp_id() const noexcept;
    /// Returns the identifier under which the library's catalog holds the text.
    std::string getMsgId() const;

private:
    std::string msg_id_;
    std::string text_;
    ctype_excp_id id_;
};

/// A length exceeds what the conversion library can count.
class FL_I18N_API CtypeSizeTooLarge : public CtypeExceptionBase {
public:
    CtypeSizeTooLarge();
    ~CtypeSizeTooLarge() override;
};

/// The conversion library could not map or normalise a text.
class FL_I18N_API CtypeTransformFailure : public CtypeExceptionBase {
public:
    /// Takes the error code of the conversion library.
    explicit CtypeTransformFailure(int error_code);
    ~CtypeTransformFailure() override;

    /// Returns the error code of the conversion library.
    int getErrorCode() const noexcept;

private:
    int error_code_;
};

/// The conversion library could not compare two texts.
class FL_I18N_API CtypeStrCompFailure : public CtypeExceptionBase {
public:
    CtypeStrCompFailure();
    ~CtypeStrCompFailure() override;
};

/// A mode or a form of normalisation is none.
class FL_I18N_API CtypeInvalidArgument : public CtypeExceptionBase {
public:
    CtypeInvalidArgument();
    ~CtypeInvalidArgument() override;
};

/// Classification and simple case mapping of code points.
///
/// The functions that classify return 1 or 0, for values above 0x10FFFF too. Nothing here throws, depends on
/// a locale or has state.
namespace lcctype {

/// Tells whether a code point is a letter of any script.
FL_I18N_API int isalpha(char32_t c) noexcept;
/// Tells whether a code point is a letter or a decimal digit of any script.
FL_I18N_API int isalnum(char32_t c) noexcept;
/// Tells whether a code point is a decimal digit of any script.
FL_I18N_API int isdigit(char32_t c) noexcept;
/// Tells whether a code point is a decimal digit of any script or one of the letters A to F, fullwidth ones
/// included.
FL_I18N_API int isxdigit(char32_t c) noexcept;
/// Tells whether a code point is a lower-case letter.
FL_I18N_API int islower(char32_t c) noexcept;
/// Tells whether a code point is an upper-case letter.
FL_I18N_API int isupper(char32_t c) noexcept;
/// Tells whether a code point is a control or format character, or a line or paragraph separator.
FL_I18N_API int iscntrl(char32_t c) noexcept;
/// Tells whether a code point is assigned and no control, format, private-use or surrogate code point.
FL_I18N_API int isprint(char32_t c) noexcept;
/// Tells whether a code point is punctuation.
FL_I18N_API int ispunct(char32_t c) noexcept;
/// Tells whether a code point is the tabulator or a space separator.
FL_I18N_API int isblank(char32_t c) noexcept;
/// Tells whether a code point has the property White_Space.
FL_I18N_API int isspace(char32_t c) noexcept;
/// Tells whether a code point is white space at which a line may break: not U+00A0, U+2007 and U+202F.
FL_I18N_API int isbreakable_space(char32_t c) noexcept;
/// Tells whether a code point is a letter, mark, number, punctuation or symbol.
FL_I18N_API int isgraph(char32_t c) noexcept;

/// Tells whether a value is an ASCII letter.
FL_I18N_API int isalpha_ascii(char32_t c) noexcept;
/// Tells whether a value is an ASCII digit.
FL_I18N_API int isdigit_ascii(char32_t c) noexcept;
/// Tells whether a value is an ASCII letter or digit.
FL_I18N_API int isalnum_ascii(char32_t c) noexcept;
/// Tells whether a value is a space or one of U+0009 to U+000D.
FL_I18N_API int isspace_ascii(char32_t c) noexcept;
/// Tells whether a value is a lower-case ASCII letter.
FL_I18N_API int islower_ascii(char32_t c) noexcept;
/// Tells whether a value is an upper-case ASCII letter.
FL_I18N_API int isupper_ascii(char32_t c) noexcept;
/// Tells whether a value is a space or the tabulator.
FL_I18N_API int isblank_ascii(char32_t c) noexcept;
/// Tells whether a value is at most 127.
FL_I18N_API int isascii_character(char32_t c) noexcept;

/// Tells whether a value fits into one UTF-16 unit; a surrogate does.
FL_I18N_API bool is_valid_uchar(char32_t c) noexcept;
/// Tells whether a value is a code point other than a surrogate.
FL_I18N_API bool is_valid_utf32(char32_t c) noexcept;
/// Writes a code point as UTF-16 and returns the number of units, 1 or 2.
///
/// `out` has room for two units. The code point is not checked.
FL_I18N_API std::size_t make_uchar_from_utf32(char32_t c, char16_t * out) noexcept;
/// Returns the code point of a surrogate pair; U+FFFD when the units are no pair.
FL_I18N_API char32_t make_utf32_from_uchar(char16_t high, char16_t low) noexcept;

/// Returns the simple lower-case mapping; a code point without one is returned unchanged.
FL_I18N_API char32_t tolower(char32_t c) noexcept;
/// Returns the simple upper-case mapping; a code point without one is returned unchanged.
FL_I18N_API char32_t toupper(char32_t c) noexcept;

/// Compares two texts that end with NUL under full default case folding, in the order of UTF-16 units.
///
/// The result is negative, 0 or positive; the order of texts with lone surrogates is arbitrary.
FL_I18N_API int strcasecmp(char16_t const * a, char16_t const * b) noexcept;
/// Compares at most `n` UTF-16 units of two texts as `strcasecmp` does; -1 without a look at either when `n`
/// exceeds 0x7fffffff.
FL_I18N_API int strncasecmp(char16_t const * a, char16_t const * b, std::size_t n) noexcept;

} // namespace lcctype

/// Asks for upper case by the rules of a locale's ctype category.
class FL_I18N_API to_upper_locale {
public:
    /// Takes the locale that is the global one at this moment.
    to_upper_locale();
    /// Refers to a locale, which must live as long as the tag and its copies are used.
    to_upper_locale(QzLocale const & locale);

    /// Returns the locale.
    QzLocale const & locale() const noexcept;

private:
    QzLocale const * locale_;
};

/// Asks for lower case by the rules of a locale's ctype category.
class FL_I18N_API to_lower_locale {
public:
    /// Takes the locale that is the global one at this moment.
    to_lower_locale();
    /// Refers to a locale, which must live as long as the tag and its copies are used.
    to_lower_locale(QzLocale const & locale);

    /// Returns the locale.
    QzLocale const & locale() const noexcept;

private:
    QzLocale const * locale_;
};

/// Asks for a form of normalisation.
enum class normalization_form : unsigned {
    compose = character_handling_mode_context::normalized_compose_mode,     ///< NFC
    decompose = character_handling_mode_context::normalized_decompose_mode, ///< NFD
};

/// The operations on texts that are given by pointer and length.
namespace detail {

/// Maps a text to lower case into a buffer of the caller and returns the length of the full result.
///
/// Lengths are in UTF-16 units. The length may exceed `dst_len`; the content of the buffer is then
/// unspecified. When `dst` is null the result is only counted. When `src` is null or empty nothing is done
/// and 0 is returned. Source and buffer must not overlap. No terminator is needed in the source or promised
/// in the result. Any thread may call it. Throws `CtypeSizeTooLarge` when the source exceeds 0x7fffffff units
/// and `CtypeTransformFailure` when the transformation fails. The same holds for the other functions of this
/// name.
FL_I18N_API std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src,
                                  std::size_t src_len, to_lower_locale const & mode);
/// Maps a text to upper case.
FL_I18N_API std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src,
                                  std::size_t src_len, to_upper_locale const & mode);
/// Normalises a text; throws `CtypeInvalidArgument` for a form that is none.
FL_I18N_API std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src,
                                  std::size_t src_len, normalization_form form);
/// Maps a text to lower case and normalises what that gives.
FL_I18N_API std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src,
                                  std::size_t src_len, to_lower_locale const & mode, normalization_form form);
/// Maps a text to upper case and normalises what that gives.
FL_I18N_API std::size_t transform(char16_t * dst, std::size_t dst_len, char16_t const * src,
                                  std::size_t src_len, to_upper_locale const & mode, normalization_form form);

} // namespace detail

/// Returns what the modes make of a text: a case tag, a form of normalisation, or both in this order.
///
/// Any thread may call it. Throws what `detail::transform` throws.
template <class... Modes>
requires requires(char16_t * text, Modes const &... modes) {
    detail::transform(text, 0, text, 0, modes...);
}
ustring transform(std::u16string_view text, Modes const &... modes) {
    // A text that is too long is refused before a buffer is made for it.
    std::size_t length = text.size() <= 0x7fffffff ? text.size() : 0;
    // Few texts outgrow this, and are transformed twice. A short one keeps to what a string holds in itself.
    std::size_t const short_length = ustring().capacity();
    ustring result(length <= short_length ? short_length : length + length / 16 + 8, u'\0');
    for (;;) {
        length = detail::transform(result.data(), result.size(), text.data(), text.size(), modes...);
        bool const fits = length <= result.size();
        result.resize(length);
        if (fits) {
            return result;
        }
    }
}

} // namespace fl::i18n
