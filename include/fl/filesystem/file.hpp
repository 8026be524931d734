#pragma once

#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/converter.hpp>
#include <fl/i18n/export.hpp>
#include <fl/i18n/ustring_type.hpp>

#include <cstddef>
#include <string>

namespace fl::filesystem {

/// Copies native path text, one UTF-16 unit per `wchar_t`, into UTF-16. Any thread may use an object.
///
/// The buffer form converts what fits and returns the number of units written.
class FL_I18N_API codecvt_filesystem_to_ustring : public i18n::converter<char16_t, wchar_t> {
public:
    /// The flag makes no difference: nothing can fail.
    explicit codecvt_filesystem_to_ustring(bool lenient);

protected:
    std::size_t do_get_destination_size(wchar_t const * source, std::size_t source_length) const override;
    std::size_t do_convert(char16_t * destination, std::size_t destination_length, wchar_t const * source,
                           std::size_t source_length) const override;
    i18n::ustring do_convert(wchar_t const * source, std::size_t source_length) override;
};

/// Copies UTF-16 into native path text, one unit per `wchar_t`. Any thread may use an object.
///
/// The buffer form converts what fits and returns the number of units written.
class FL_I18N_API codecvt_ustring_to_filesystem : public i18n::converter<wchar_t, char16_t> {
public:
    /// The flag makes no difference: nothing can fail.
    explicit codecvt_ustring_to_filesystem(bool lenient);

protected:
    std::size_t do_get_destination_size(char16_t const * source, std::size_t source_length) const override;
    std::size_t do_convert(wchar_t * destination, std::size_t destination_length, char16_t const * source,
                           std::size_t source_length) const override;
    std::wstring do_convert(char16_t const * source, std::size_t source_length) override;
};

/// Converts narrow text in the system locale's encoding into UTF-16.
///
/// Errors are those of `i18n::codecvt_string_to_ustring`. The buffer form converts what fits and returns the
/// number of units written.
class FL_I18N_API codecvt_narrow_string_to_ustring : public i18n::converter<char16_t, char> {
public:
    /// When `lenient`, malformed input becomes U+FFFD, else it throws `i18n::CvtInvalidCharacter`. Throws
    /// `i18n::CvtInvalidEncodingName` when there is no converter for the encoding.
    explicit codecvt_narrow_string_to_ustring(bool lenient);

protected:
    std::size_t do_get_destination_size(char const * source, std::size_t source_length) const override;
    std::size_t do_convert(char16_t * destination, std::size_t destination_length, char const * source,
                           std::size_t source_length) const override;
    i18n::ustring do_convert(char const * source, std::size_t source_length) override;

private:
    i18n::codecvt_string_to_ustring converter_;
};

/// Converts UTF-16 into narrow text in the system locale's encoding.
///
/// Errors are those of `i18n::codecvt_ustring_to_string`. The buffer form converts what fits and returns the
/// number of bytes written.
class FL_I18N_API codecvt_ustring_to_narrow_string : public i18n::converter<char, char16_t> {
public:
    /// When `lenient`, characters that the encoding lacks become its substitution character, else they throw
    /// `i18n::CvtInvalidCharacter`. Throws `i18n::CvtInvalidEncodingName` when there is no converter for the
    /// encoding.
    explicit codecvt_ustring_to_narrow_string(bool lenient);

protected:
    std::size_t do_get_destination_size(char16_t const * source, std::size_t source_length) const override;
    std::size_t do_convert(char * destination, std::size_t destination_length, char16_t const * source,
                           std::size_t source_length) const override;
    std::string do_convert(char16_t const * source, std::size_t source_length) override;

private:
    i18n::codecvt_ustring_to_string converter_;
};

} // namespace fl::filesystem
