#pragma once

#include <fl/i18n/converter.hpp>
#include <fl/i18n/export.hpp>
#include <fl/i18n/ustring_type.hpp>

#include <cstddef>
#include <memory>
#include <string>

namespace fl {
class kept_encoding;
} // namespace fl

namespace fl::i18n {

namespace detail {

struct conversion_record;
struct encoding_access;

/// The encoding of a named converter.
struct named_encoding {
    /// Deletes nothing: what it is given belongs to another.
    struct nobodys {
        void operator()(kept_encoding const *) const noexcept {} ///< Leaves it to its owner.
    };
    /// What all converters of the encoding share, of the process; null where only the record serves.
    std::unique_ptr<kept_encoding const, nobodys> shared;
    /// The converter of its own, opened when something takes it; null before, and after a move.
    std::unique_ptr<conversion_record> record;
    /// The mode with which the record is opened.
    codecvt_call_back_mode first_mode = call_back_default;
};

} // namespace detail

/// Converts narrow text of a named encoding into UTF-16.
///
/// An object that was moved from can be assigned to; every other operation that needs its converter throws
/// `CvtConversionFailure`. After a failed conversion the converter is usable as before.
class FL_I18N_API codecvt_string_to_ustring : public converter<char16_t, char> {
public:
    /// Opens a converter; an empty name means the global locale's encoding.
    ///
    /// When `lenient`, malformed input becomes U+FFFD; else the mode is `call_back_stop`. Throws
    /// `CvtInvalidEncodingName`.
    codecvt_string_to_ustring(std::string const & encoding, bool lenient);
    /// Opens a converter with a call-back mode. Throws `CvtInvalidEncodingName` and what `change_call_back`
    /// does.
    codecvt_string_to_ustring(codecvt_call_back_mode mode, std::string const & encoding);
    /// Takes over the converter of another object.
    codecvt_string_to_ustring(codecvt_string_to_ustring && other) noexcept;
    /// Closes the converter and takes over that of another object.
    codecvt_string_to_ustring & operator=(codecvt_string_to_ustring && other) noexcept;
    ~codecvt_string_to_ustring() override;

    /// Undoes the mode in force and applies another, `call_back_default` or `call_back_stop`.
    ///
    /// Throws `CvtNonSupportedMode` for the modes of the other direction, `CvtInvalidArgument` for a value
    /// that is no mode and `CvtCallBackSettingFailure`; the mode is then `call_back_default`.
    void change_call_back(codecvt_call_back_mode mode);
    /// Returns to `call_back_default`.
    void reset_call_back();
    /// Returns the mode in force; `call_back_default` after a refused change too.
    codecvt_call_back_mode get_call_back_mode() const;

protected:
    std::size_t do_get_destination_size(char const * source, std::size_t source_length) const override;
    std::size_t do_convert(char16_t * destination, std::size_t destination_length, char const * source,
                           std::size_t source_length) const override;
    ustring do_convert(char const * source, std::size_t source_length) override;

private:
    friend detail::encoding_access;

    mutable detail::named_encoding encoding_;
};

/// Converts UTF-16 into narrow text of a named encoding.
///
/// An object that was moved from can be assigned to; every other operation that needs its converter throws
/// `CvtConversionFailure`. After a failed conversion the converter is usable as before.
class FL_I18N_API codecvt_ustring_to_string : public converter<char, char16_t> {
public:
    /// Opens a converter; an empty name means the global locale's encoding.
    ///
    /// When `lenient`, characters that the encoding lacks become its substitution character; else the mode is
    /// `call_back_stop`. Throws `CvtInvalidEncodingName`.
    codecvt_ustring_to_string(std::string const & encoding, bool lenient);
    /// Opens a converter with a call-back mode. Throws `CvtInvalidEncodingName` and what `change_call_back`
    /// does.
    codecvt_ustring_to_string(codecvt_call_back_mode mode, std::string const & encoding,
                              std::string const & substitution);
    /// Takes over the converter of another object.
    codecvt_ustring_to_string(codecvt_ustring_to_string && other) noexcept;
    /// Closes the converter and takes over that of another object.
    codecvt_ustring_to_string & operator=(codecvt_ustring_to_string && other) noexcept;
    ~codecvt_ustring_to_string() override;

    /// Undoes the mode in force and applies another.
    ///
    /// `substitution` holds the bytes that `call_back_substitute` writes, in the target encoding, 1 to 127 of
    /// them; the other modes ignore it. Those bytes stay in force and `get_call_back_mode` then tells
    /// `call_back_default`. Throws `CvtNonSupportedMode` for `call_back_skip`, `CvtInvalidArgument` for a
    /// value that is no mode and for an empty substitution, `CvtSizeTooLarge` for a longer one and
    /// `CvtCallBackSettingFailure`; the mode is then `call_back_default`.
    void change_call_back(codecvt_call_back_mode mode, std::string const & substitution);
    /// Returns to `call_back_default`.
    void reset_call_back();
    /// Returns the mode in force; `call_back_default` after a refused change too.
    codecvt_call_back_mode get_call_back_mode() const;

protected:
    std::size_t do_get_destination_size(char16_t const * source, std::size_t source_length) const override;
    std::size_t do_convert(char * destination, std::size_t destination_length, char16_t const * source,
                           std::size_t source_length) const override;
    std::string do_convert(char16_t const * source, std::size_t source_length) override;

private:
    friend detail::encoding_access;

    mutable detail::named_encoding encoding_;
};

/// Converts ASCII into UTF-16. Any thread may use an object.
///
/// A byte above 127 becomes U+FFFD when the converter is lenient, else conversion and size query throw
/// `CvtInvalidCharacter`. The buffer form differs from that of other converters: it converts what fits and
/// returns the number of units written.
class FL_I18N_API codecvt_ascii_to_ustring : public converter<char16_t, char> {
public:
    /// Makes a lenient or a strict converter.
    explicit codecvt_ascii_to_ustring(bool lenient);
    ~codecvt_ascii_to_ustring() override;

protected:
    std::size_t do_get_destination_size(char const * source, std::size_t source_length) const override;
    std::size_t do_convert(char16_t * destination, std::size_t destination_length, char const * source,
                           std::size_t source_length) const override;
    ustring do_convert(char const * source, std::size_t source_length) override;

private:
    bool lenient_;
};

/// Converts UTF-16 into ASCII. Any thread may use an object.
///
/// A unit above 127 becomes the byte 0xFF when the converter is lenient, else conversion and size query throw
/// `CvtInvalidCharacter`. The buffer form differs from that of other converters: it converts what fits and
/// returns the number of bytes written.
class FL_I18N_API codecvt_ustring_to_ascii : public converter<char, char16_t> {
public:
    /// Makes a lenient or a strict converter.
    explicit codecvt_ustring_to_ascii(bool lenient);
    ~codecvt_ustring_to_ascii() override;

protected:
    std::size_t do_get_destination_size(char16_t const * source, std::size_t source_length) const override;
    std::size_t do_convert(char * destination, std::size_t destination_length, char16_t const * source,
                           std::size_t source_length) const override;
    std::string do_convert(char16_t const * source, std::size_t source_length) override;

private:
    bool lenient_;
};

/// Converts UTF-16 into the modified UTF-8 of Java's native interface. Any thread may use an object.
///
/// U+0000 becomes the bytes C0 80 and every surrogate three bytes of its own. A source of more than
/// 0x3fffffff units throws `CvtSizeTooLarge`. A buffer that is too small is filled with whole sequences only.
class FL_I18N_API codecvt_ustring_to_java_nonstandard_utf8 : public converter<char, char16_t> {
public:
    codecvt_ustring_to_java_nonstandard_utf8();
    ~codecvt_ustring_to_java_nonstandard_utf8() override;

protected:
    std::size_t do_get_destination_size(char16_t const * source, std::size_t source_length) const override;
    std::size_t do_convert(char * destination, std::size_t destination_length, char16_t const * source,
                           std::size_t source_length) const override;
    std::string do_convert(char16_t const * source, std::size_t source_length) override;
};

/// Copies wide text, one UTF-16 unit per `wchar_t` whatever its size, into UTF-16. Any thread may use an
/// object.
class FL_I18N_API codecvt_wstring_to_ustring : public converter<char16_t, wchar_t> {
public:
    codecvt_wstring_to_ustring();
    ~codecvt_wstring_to_ustring() override;

protected:
    std::size_t do_get_destination_size(wchar_t const * source, std::size_t source_length) const override;
    std::size_t do_convert(char16_t * destination, std::size_t destination_length, wchar_t const * source,
                           std::size_t source_length) const override;
    ustring do_convert(wchar_t const * source, std::size_t source_length) override;
};

/// Copies UTF-16 into wide text, one unit per `wchar_t` whatever its size. Any thread may use an object.
class FL_I18N_API codecvt_ustring_to_wstring : public converter<wchar_t, char16_t> {
public:
    codecvt_ustring_to_wstring();
    ~codecvt_ustring_to_wstring() override;

protected:
    std::size_t do_get_destination_size(char16_t const * source, std::size_t source_length) const override;
    std::size_t do_convert(wchar_t * destination, std::size_t destination_length, char16_t const * source,
                           std::size_t source_length) const override;
    std::wstring do_convert(char16_t const * source, std::size_t source_length) override;
};

/// Returns a lenient converter from the terminal encoding of the global locale.
///
/// This and the next three throw `CvtInvalidEncodingName` when there is no converter for the encoding, and
/// `std::bad_variant_access` when the locale's answer is not a string.
FL_I18N_API std::unique_ptr<converter<char16_t, char> const> create_codecvt_terminal_to_ustring();
/// Returns a lenient converter from the terminal input encoding of the global locale.
FL_I18N_API std::unique_ptr<converter<char16_t, char> const> create_codecvt_terminal_input_to_ustring();
/// Returns a lenient converter to the terminal encoding of the global locale.
FL_I18N_API std::unique_ptr<converter<char, char16_t> const> create_codecvt_ustring_to_terminal();
/// Returns a lenient converter to the terminal output encoding of the global locale.
FL_I18N_API std::unique_ptr<converter<char, char16_t> const> create_codecvt_ustring_to_terminal_output();

/// Returns the preferred standard name of an encoding name or alias: the MIME name where one exists.
///
/// Empty when neither the encoding tables nor the conversion library know the name. Any thread may call it.
FL_I18N_API std::string get_standard_encoding_name(std::string const & name);

} // namespace fl::i18n
