#pragma once

#include <fl/i18n/converter.hpp>
#include <fl/i18n/export.hpp>
#include <fl/i18n/ustring_type.hpp>

#include <cstddef>
#include <string>
#include <string_view>

/// @file
/// Conversions between `ustring` and the other string types of a process.
///
/// An empty source, and a null pointer where one is taken, gives an empty result. Pointers without a length
/// are to texts that end with NUL. Any thread may call the functions; those that take a converter keep its
/// rule about threads.
namespace fl::i18n {

/// Returns text of the process encoding, that of the global locale, as UTF-16.
///
/// Bytes that are malformed become the encoding's replacement. Throws `CvtConversionFailure` when no
/// converter can be had for the encoding.
FL_I18N_API ustring to_ustring(std::string const & text);
/// Returns text of the process encoding as UTF-16, as the function for `std::string` does.
FL_I18N_API ustring to_ustring(char const * text);

/// Returns the UTF-16 text that a converter makes of a narrow text.
///
/// Passes on what the converter throws; throws `CvtConversionFailure` when the converter produces more than
/// it announced.
FL_I18N_API ustring to_ustring(std::string const & text, converter<char16_t, char> const & with);
/// Returns the UTF-16 text that a converter makes of a narrow text, as the function for `std::string` does.
FL_I18N_API ustring to_ustring(char const * text, converter<char16_t, char> const & with);

/// Returns UTF-32 text as UTF-16.
///
/// The text is not checked: surrogate values become single units, values above 0x10FFFF become two arbitrary
/// units.
FL_I18N_API ustring to_ustring(std::u32string const & text);
/// Returns UTF-32 text as UTF-16, as the function for `std::u32string` does.
FL_I18N_API ustring to_ustring(char32_t const * text);

/// Returns a copy of a wide string that holds one UTF-16 unit per `wchar_t`, whatever the size of `wchar_t`.
FL_I18N_API ustring to_ustring(std::wstring const & text);
/// Returns a copy of a wide string, as the function for `std::wstring` does.
FL_I18N_API ustring to_ustring(wchar_t const * text);

/// Returns UTF-16 text in the process encoding, that of the global locale.
///
/// Characters that the encoding lacks, and lone surrogates, become the encoding's substitution character;
/// invisible ones, such as a soft hyphen, vanish where the encoding lacks them. Throws `CvtConversionFailure`
/// when no converter can be had for the encoding.
FL_I18N_API std::string to_string(ustring const & text);

/// Returns the narrow text that a converter makes of a UTF-16 text.
///
/// Passes on what the converter throws; throws `CvtConversionFailure` when the converter produces more than
/// it announced.
FL_I18N_API std::string to_string(ustring const & text, converter<char, char16_t> const & with);

/// Returns UTF-16 text as UTF-32; each lone surrogate becomes U+FFFD.
FL_I18N_API std::u32string to_u32string(ustring const & text);
/// Returns UTF-16 text as UTF-32, as the function for `ustring` does.
FL_I18N_API std::u32string to_u32string(char16_t const * text);

/// Returns a copy of a UTF-16 text with one unit per `wchar_t`, whatever the size of `wchar_t`.
FL_I18N_API std::wstring to_wstring(ustring const & text);

/// Returns UTF-16 text as UTF-8; each lone surrogate becomes U+FFFD.
FL_I18N_API std::string ustring_to_utf8(ustring const & text);
/// Returns UTF-16 text as UTF-8, as the function for `ustring` does.
FL_I18N_API std::string ustring_to_utf8(std::u16string_view text);
/// Returns UTF-16 text as UTF-8, as the function for `ustring` does.
FL_I18N_API std::string ustring_to_utf8(char16_t const * text);
/// Returns UTF-16 text of `length` units as UTF-8, as the function for `ustring` does.
FL_I18N_API std::string ustring_to_utf8(char16_t const * text, std::size_t length);

/// Returns UTF-8 text as UTF-16; each ill-formed piece becomes U+FFFD.
FL_I18N_API ustring utf8_to_ustring(std::string const & text);
/// Returns UTF-8 text as UTF-16, as the function for `std::string` does.
FL_I18N_API ustring utf8_to_ustring(char const * text);

/// Compares two texts that end with NUL in the order of their UTF-16 units.
///
/// The result is negative, 0 or positive. A surrogate is less than U+E000 to U+FFFF.
FL_I18N_API int strcmp(char16_t const * a, char16_t const * b);
/// Compares at most `n` UTF-16 units of two texts; -1 without a look at either when `n` exceeds 0x7fffffff.
FL_I18N_API int strncmp(char16_t const * a, char16_t const * b, std::size_t n);
/// Returns the number of UTF-16 units before the first NUL, at most `limit`; no unit beyond `limit` is read.
FL_I18N_API std::size_t strlen_lim(char16_t const * text, std::size_t limit);

} // namespace fl::i18n
