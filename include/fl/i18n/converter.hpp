#pragma once

#include <fl/i18n/export.hpp>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>

namespace fl::i18n {

/// Identifies an exception of the conversion family.
enum codecvt_excp_id : std::int32_t {
    codecvt_excp_invalid_argument = 1,
    codecvt_excp_invalid_encoding_name = 2,
    codecvt_excp_call_back_setting_failure = 3,
    codecvt_excp_non_supported_mode = 4,
    codecvt_excp_invalid_character = 5,
    codecvt_excp_size_too_large = 6,
    codecvt_excp_conversion_failure = 7,
    codecvt_excp_clone_failure = 8,
};

/// The base of all exceptions that conversions throw.
///
/// They are thrown through Boost's exception wrapper: each can also be caught as `boost::exception` and
/// carried to another thread by `boost::exception_ptr`.
class FL_I18N_API CvtExceptionBase : public std::exception {
public:
    /// Takes the text and the kind of a derived class.
    CvtExceptionBase(char const * text, codecvt_excp_id id);
    ~CvtExceptionBase() override;

    /// Returns the fixed English text of the exception's class.
    char const * what() const noexcept override;
    /// Returns the numeric kind of the exception.
    codecvt_excp_id get_excp_id() const noexcept;

private:
    std::string text_;
    codecvt_excp_id id_;
};

/// An argument is out of its range, such as a call-back mode that is none.
class FL_I18N_API CvtInvalidArgument : public CvtExceptionBase {
public:
    CvtInvalidArgument();
    ~CvtInvalidArgument() override;
};

/// No converter exists for an encoding name.
class FL_I18N_API CvtInvalidEncodingName : public CvtExceptionBase {
public:
    /// Takes the name that was refused.
    explicit CvtInvalidEncodingName(std::string const & encoding);
    ~CvtInvalidEncodingName() override;

    /// Returns the name that was refused, unchanged.
    std::string getEncoding() const;

private:
    std::string encoding_;
};

/// The conversion library refused a call-back or a substitution string.
class FL_I18N_API CvtCallBackSettingFailure : public CvtExceptionBase {
public:
    CvtCallBackSettingFailure();
    ~CvtCallBackSettingFailure() override;
};

/// A call-back mode exists but not for this converter.
class FL_I18N_API CvtNonSupportedMode : public CvtExceptionBase {
public:
    CvtNonSupportedMode();
    ~CvtNonSupportedMode() override;
};

/// The source holds a sequence that is malformed, or that the destination encoding cannot express.
class FL_I18N_API CvtInvalidCharacter : public CvtExceptionBase {
public:
    CvtInvalidCharacter();
    ~CvtInvalidCharacter() override;
};

/// A length exceeds what the conversion library can count.
class FL_I18N_API CvtSizeTooLarge : public CvtExceptionBase {
public:
    CvtSizeTooLarge();
    ~CvtSizeTooLarge() override;
};

/// A conversion failed for any other reason; a source that ends within a character or with a lone surrogate
/// is one when conversion stops at invalid input.
class FL_I18N_API CvtConversionFailure : public CvtExceptionBase {
public:
    CvtConversionFailure();
    ~CvtConversionFailure() override;
};

/// A converter could not be cloned.
class FL_I18N_API CvtCloneFailure : public CvtExceptionBase {
public:
    CvtCloneFailure();
    ~CvtCloneFailure() override;
};

/// Decides what a converter does with characters that it cannot convert.
///
/// To Unicode only `call_back_default` and `call_back_stop` are supported. From Unicode every mode but
/// `call_back_skip` is; there a value with a bit of 0x7F00 that is none of the escape modes escapes in the
/// conversion library's default format.
///
/// Invisible characters that the target encoding lacks, such as a soft hyphen or a zero-width space, vanish
/// in every mode unless the conversion library comes with call-backs that heed them.
enum codecvt_call_back_mode : std::int32_t {
    call_back_default = 0,           ///< substitute as the encoding does by default
    call_back_stop = 1,              ///< fail at the first such character
    call_back_substitute = 16,       ///< substitute a given byte string
    call_back_skip = 32,             ///< not supported by any converter
    call_back_escape_java = 512,     ///< `\u20AC`
    call_back_escape_c = 1024,       ///< `\u20AC`, `\U0001F600`
    call_back_escape_xml_dec = 2048, ///< `&#8364;`
    call_back_escape_xml_hex = 4096, ///< `&#x20AC;`
    call_back_escape_unicode = 8192, ///< `{U+20AC}`
    call_back_escape_css2 = 16384,   ///< `\20AC` and a space
};

/// Converts whole strings of `From` units into strings of `To` units.
///
/// Lengths are counted in units, terminators never. Unless a derived class says otherwise an object must not
/// be used by two threads at once, not even through its `const` operations; distinct objects are independent.
template <class To, class From>
class converter {
public:
    virtual ~converter();

    /// Returns the converted string; empty for an empty source.
    std::basic_string<To> convert(std::basic_string<From> const & source);
    /// Returns the converted string; empty when `source` is null or `source_length` is 0.
    std::basic_string<To> convert(From const * source, std::size_t source_length);
    /// Converts into a buffer of the caller, as the next function does.
    std::size_t convert(To * destination, std::size_t destination_length,
                        std::basic_string<From> const & source) const;
    /// Converts into a buffer of the caller and returns the length of the full result.
    ///
    /// That length may exceed `destination_length`; the buffer then holds a part of the result. No terminator
    /// is added. When a length is 0 or a pointer is null nothing is converted and 0 is returned.
    std::size_t convert(To * destination, std::size_t destination_length, From const * source,
                        std::size_t source_length) const;
    /// Returns the length of the result, as the next function does.
    std::size_t get_destination_size(std::basic_string<From> const & source) const;
    /// Returns the length of the result; 0 when `source` is null or `source_length` is 0.
    std::size_t get_destination_size(From const * source, std::size_t source_length) const;

protected:
    converter() = default;
    converter(converter const &) = default;
    converter & operator=(converter const &) = default;

    /// Returns the length of the result. The source is never empty.
    virtual std::size_t do_get_destination_size(From const * source, std::size_t source_length) const = 0;
    /// Converts into a buffer and returns the length of the full result. Neither source nor buffer is ever
    /// empty.
    virtual std::size_t do_convert(To * destination, std::size_t destination_length, From const * source,
                                   std::size_t source_length) const = 0;
    /// Converts into a new string. The source is never empty.
    virtual std::basic_string<To> do_convert(From const * source, std::size_t source_length) = 0;
};

/// Converts a stream of `From` units piece by piece, keeping state between the pieces.
///
/// One object serves one stream and must not be used by two threads at once.
template <class To, class From>
class stream_converter {
public:
    virtual ~stream_converter();

    /// Converts from `*source_next` on until the source or the room in the destination is used up.
    ///
    /// On return both positions point past what was consumed and produced. `flush` marks the stream's last
    /// piece.
    std::size_t convert(To ** destination_next, To * destination_end, From const ** source_next,
                        From const * source_end, bool flush) const;
    /// Forgets what earlier pieces left behind.
    void reset_state() const;
    /// Returns the largest number of destination units that one source character can produce.
    std::size_t max_char_size() const;

protected:
    stream_converter() = default;
    stream_converter(stream_converter const &) = default;
    stream_converter & operator=(stream_converter const &) = default;

    /// Converts as `convert` does.
    virtual std::size_t do_convert(To ** destination_next, To * destination_end, From const ** source_next,
                                   From const * source_end, bool flush) const = 0;
    /// Forgets what earlier pieces left behind.
    virtual void do_reset_state() const = 0;
    /// Returns the largest number of destination units that one source character can produce.
    virtual std::size_t do_max_char_size() const = 0;
};

template <class To, class From>
converter<To, From>::~converter() = default;

template <class To, class From>
std::basic_string<To> converter<To, From>::convert(std::basic_string<From> const & source) {
    return convert(source.data(), source.size());
}

template <class To, class From>
std::basic_string<To> converter<To, From>::convert(From const * source, std::size_t source_length) {
    if (!source || source_length == 0) {
        return {};
    }
    return do_convert(source, source_length);
}

template <class To, class From>
std::size_t converter<To, From>::convert(To * destination, std::size_t destination_length,
                                         std::basic_string<From> const & source) const {
    return convert(destination, destination_length, source.data(), source.size());
}

template <class To, class From>
std::size_t converter<To, From>::convert(To * destination, std::size_t destination_length,
                                         From const * source, std::size_t source_length) const {
    if (!destination || destination_length == 0 || !source || source_length == 0) {
        return 0;
    }
    return do_convert(destination, destination_length, source, source_length);
}

template <class To, class From>
std::size_t converter<To, From>::get_destination_size(std::basic_string<From> const & source) const {
    return get_destination_size(source.data(), source.size());
}

template <class To, class From>
std::size_t converter<To, From>::get_destination_size(From const * source, std::size_t source_length) const {
    if (!source || source_length == 0) {
        return 0;
    }
    return do_get_destination_size(source, source_length);
}

template <class To, class From>
stream_converter<To, From>::~stream_converter() = default;

template <class To, class From>
std::size_t stream_converter<To, From>::convert(To ** destination_next, To * destination_end,
                                                From const ** source_next, From const * source_end,
                                                bool flush) const {
    return do_convert(destination_next, destination_end, source_next, source_end, flush);
}

template <class To, class From>
void stream_converter<To, From>::reset_state() const {
    do_reset_state();
}

template <class To, class From>
std::size_t stream_converter<To, From>::max_char_size() const {
    return do_max_char_size();
}

// The instantiations that the library holds.
extern template class FL_I18N_API converter<char16_t, char>;
extern template class FL_I18N_API converter<char, char16_t>;
extern template class FL_I18N_API converter<char16_t, wchar_t>;
extern template class FL_I18N_API converter<wchar_t, char16_t>;
extern template class FL_I18N_API stream_converter<char16_t, char>;
extern template class FL_I18N_API stream_converter<char, char16_t>;
extern template class FL_I18N_API stream_converter<char, char>;

} // namespace fl::i18n
