#pragma once

#include <fl/filesystem/path.hpp>
#include <fl/i18n/character_handling_mode.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/converter.hpp>
#include <fl/i18n/export.hpp>
#include <fl/i18n/ustring_type.hpp>

#include <boost/date_time/posix_time/ptime.hpp>
#include <boost/filesystem/path.hpp>
#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

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

/// Opens a file as the C library's function of the name does.
///
/// A relative name is completed with the current directory, either separator is taken, and a name may have
/// any length that the system can take, any characters, and dots or spaces at its end; "NUL" is a file, not a
/// device. The caller closes the stream, which is one of the C runtime that this library uses.
///
/// Returns null with `errno` set when the file cannot be opened: EINVAL for an empty name or mode, a null
/// character in either and a mode that is not ASCII; EISDIR for a name that ends with a backslash; ENOENT for
/// a file that is not there, ENAMETOOLONG instead when its absolute name has 32768 units or more; otherwise
/// what the system says, for a directory EACCES on Windows and EISDIR elsewhere. Throws `InvalidArgument` for
/// a name that has no long form, such as that of a device. Any thread may call it.
FL_I18N_API std::FILE * fopen(upath const & path, std::string const & mode);
/// Opens a file as the function for `upath` does.
FL_I18N_API std::FILE * fopen(i18n::ustring const & path, std::string const & mode);
/// Opens a file as the function for `upath` does; `path` is not null and ends with NUL.
inline std::FILE * fopen(char16_t const * path, std::string const & mode) {
    return fopen(i18n::ustring(path), mode);
}
/// Opens a file as the function for `upath` does, by the native name that a converter makes of `path`.
///
/// Throws `CvtInvalidCharacter` of this namespace where the converter throws its own of that name, and
/// `FileNameConversionFailure` for any other failure of the conversion.
FL_I18N_API std::FILE * fopen(i18n::ustring const & path, std::string const & mode,
                              i18n::converter<wchar_t, char16_t> const & with);

/// Closes the file of a stream and opens another one in it, as the C library's function of the name does.
///
/// Returns the stream. Names, modes and errors are those of `fopen`; a null stream is refused with EINVAL.
/// The stream stays as it was when the call throws and when it is refused for an empty name or mode, a null
/// character in either, a backslash at the end of the name, a mode that is not ASCII, or for a relative name
/// while the process has no current directory. After any other failure, that of a mode unknown to the C
/// runtime among them, the stream is closed and must not be used any more.
FL_I18N_API std::FILE * freopen(upath const & path, std::string const & mode, std::FILE * stream);
/// Opens another file in a stream as the function for `upath` does.
FL_I18N_API std::FILE * freopen(i18n::ustring const & path, std::string const & mode, std::FILE * stream);
/// Opens another file in a stream as the function for `upath` does; `path` is not null and ends with NUL.
inline std::FILE * freopen(char16_t const * path, std::string const & mode, std::FILE * stream) {
    return freopen(i18n::ustring(path), mode, stream);
}
/// Opens another file in a stream as the function for `upath` does, by the native name that a converter makes
/// of `path`; throws as that `fopen` does.
FL_I18N_API std::FILE * freopen(i18n::ustring const & path, std::string const & mode, std::FILE * stream,
                                i18n::converter<wchar_t, char16_t> const & with);

/// Returns the directory for temporary files, as the function for a list of names does for none.
FL_I18N_API i18n::ustring temp_directory_name();
/// Returns the directory for temporary files: the first that is there and can be read and written.
///
/// The candidates are the values of the environment variables given, of TMPDIR, TMP, TEMP and USERPROFILE,
/// then the system's own ("Temp" in the directory of Windows, "\tmp" elsewhere). The text is that of the
/// variable, which may be a relative path or have forward slashes.
///
/// When none serves, throws what the system threw when asked for one of them (the last such exception), else
/// for the last candidate `PathNotFound` or `SystemError` with the `errno` value as its code. Throws
/// `TempEnvNotSpecified` when there is no candidate. Any thread may call it.
FL_I18N_API i18n::ustring temp_directory_name(std::vector<std::string> const & variable_names);

/// Returns a path that nobody can foresee, for a new file; nothing is created.
///
/// It is the directory (that of `temp_directory_name` when empty, whose exceptions pass on), a backslash
/// unless it ends with one, the prefix, 19 characters like "0123-4567-89ab-cdef" and the suffix, with a dot
/// before it unless it begins with one or is empty. Empty when the system gives no random bytes. Another
/// process may create a file of that name at any time: `tmpfile` creates one safely. Any thread may call it.
FL_I18N_API i18n::ustring tmpnam(i18n::ustring const & directory, i18n::ustring const & prefix,
                                 i18n::ustring const & suffix);

/// Creates a file under a name that `tmpnam` makes and opens it in mode "wb+"; stores the name in `name`.
///
/// A file that is there already is never opened; at most 11 names are tried. On POSIX only the user may read
/// and write the file. The caller closes the stream and removes the file.
///
/// Returns null and empties `name` when that fails, with `errno` as the last attempt has left it, EIO when
/// the system gives no random bytes. Throws as `temp_directory_name` and `fopen` do, with `name` as it was.
/// Any thread may call it.
FL_I18N_API std::FILE * tmpfile(i18n::ustring & name, i18n::ustring const & directory,
                                i18n::ustring const & prefix, i18n::ustring const & suffix);

/// Sets the time of the last write to a file or directory, in UTC.
///
/// The path must have a long form as it stands: absolute, with backslashes. Throws `InvalidArgument` for any
/// other path, for a special value and for a time outside the years 1601 to 9999, and `PathNotFound`,
/// `AccessDenied` or another exception of the family for what the system refuses. The system rounds a time to
/// what its file system can keep; Windows leaves a file as it is for the first instant of 1601. Any thread
/// may call it.
FL_I18N_API void last_write_time(upath const & path, boost::posix_time::ptime const & time);
/// Sets the time of the last write as the function for `upath` does.
FL_I18N_API void last_write_time(i18n::ustring const & path, boost::posix_time::ptime const & time);
/// Sets the time of the last write as the function for `upath` does; `path` is not null and ends with NUL.
inline void last_write_time(char16_t const * path, boost::posix_time::ptime const & time) {
    last_write_time(i18n::ustring(path), time);
}
/// Sets the time of the last write as the function for `upath` does, by the native name that a converter
/// makes of `path`; throws as that `fopen` does.
FL_I18N_API void last_write_time(i18n::ustring const & path, boost::posix_time::ptime const & time,
                                 i18n::converter<wchar_t, char16_t> const & with);

/// Compares the texts of two absolute paths under a mode: negative, 0 or positive.
///
/// An empty path comes before any other and equals another one. Nothing is normalised or looked up: the two
/// separators differ. Throws `InvalidArgument` for a relative path and `PathNameComparisonFailure` when the
/// texts cannot be compared. Any thread may call it. The same holds for the other functions of this name.
FL_I18N_API int compare(upath const & first, upath const & second,
                        i18n::character_handling_mode_context const & mode);
/// Compares two absolute paths under a mode, as the function for `upath` does.
FL_I18N_API int compare(i18n::ustring const & first, i18n::ustring const & second,
                        i18n::character_handling_mode_context const & mode);
/// Compares two absolute paths in the mode that fits the system: `case_insensitive_mode` on Windows,
/// `default_mode` elsewhere.
///
/// Full case folding takes more names for one than Windows does, such as those with a sharp s and "ss":
/// equality here does not prove that two paths are one file.
FL_I18N_API int compare(upath const & first, upath const & second);
/// Compares two absolute paths in the mode that fits the system, as the function for `upath` does.
FL_I18N_API int compare(i18n::ustring const & first, i18n::ustring const & second);
/// Compares two absolute paths as the function for `upath` does; neither is null, both end with NUL.
inline int compare(char16_t const * first, char16_t const * second,
                   i18n::character_handling_mode_context const & mode) {
    return compare(i18n::ustring(first), i18n::ustring(second), mode);
}
/// Compares two absolute paths in the mode that fits the system; neither is null, both end with NUL.
inline int compare(char16_t const * first, char16_t const * second) {
    return compare(i18n::ustring(first), i18n::ustring(second));
}

/// Returns the text of a path with backslashes.
///
/// Where paths are bytes they are UTF-8, with lone surrogates in their three-byte form; each byte that is not
/// part of a valid form becomes U+FFFD. Any thread may call it.
FL_I18N_API i18n::ustring to_ustring(boost::filesystem::path const & path);
/// Returns the text of a path with forward slashes; bytes are read as `to_ustring` does.
FL_I18N_API i18n::ustring to_generic_ustring(boost::filesystem::path const & path);
/// Returns what a converter makes of the text of a path with forward slashes; throws as `fopen` with a
/// converter does. The converter must not be in use by another thread unless it allows that.
FL_I18N_API i18n::ustring to_generic_ustring(boost::filesystem::path const & path,
                                             i18n::converter<char16_t, wchar_t> const & with);

namespace detail {

/// Returns the long form of a path, as `make_native_access_form` does.
FL_I18N_API std::wstring make_native_access_form_i18n(i18n::ustring const & path);
/// Returns the long form of a path without redundant elements, as `make_native_access_form_with_cleanup`
/// does.
FL_I18N_API std::wstring make_native_access_form_with_cleanup_i18n(i18n::ustring const & path);

} // namespace detail

} // namespace fl::filesystem
