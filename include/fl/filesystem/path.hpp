#pragma once

#include <fl/i18n/export.hpp>
#include <fl/i18n/ustring_type.hpp>

#include <string>
#include <utility>

/// Paths and files with Unicode names.
///
/// Path texts follow the rules of Windows on every system: the separator is the backslash, the forward slash
/// is accepted, and a `wchar_t` holds one UTF-16 unit: a wide literal with characters above U+FFFF is no path
/// where `wchar_t` is wider. Where the system has no drives, a path that begins with one separator is
/// absolute, and backslashes become slashes at the system call; one that begins with two separators, or with
/// a letter and a colon, is told by the rules of Windows there too. The functions may be called from any
/// thread; a relative path is completed with the current directory of the moment.
namespace fl::filesystem {

/// The characters and prefixes that give a path its structure.
template <class Char>
struct pathname_traits;

/// The constants of native path text.
template <>
struct pathname_traits<wchar_t> {
    /// The separator.
    static constexpr wchar_t PATHNAME_SEPARATOR_CHARACTER = L'\\';
    /// The other separator, accepted wherever a path is read.
    static constexpr wchar_t GENERIC_PATHNAME_SEPARATOR_CHARACTER = L'/';
    /// What follows a drive letter.
    static constexpr wchar_t VOLUME_SEPARATOR_CHARACTER = L':';
    /// What the long form of a path begins with.
    static constexpr wchar_t LONG_PATHNAME_PREFIX[] = L"\\\\?\\";
    /// What the long form of a path on a share begins with.
    static constexpr wchar_t LONG_UNC_PATHNAME_PREFIX[] = L"\\\\?\\UNC\\";
    /// What a path on a share begins with.
    static constexpr wchar_t UNC_PREFIX[] = L"\\\\";
    /// What the name of an object of the Windows kernel begins with.
    static constexpr wchar_t NT_OBJECT_PREFIX[] = L"\\??\\";
};

/// The same constants for `upath`.
struct upath_constant : pathname_traits<wchar_t> {};

/// What the operations on paths are made of.
namespace detail {

/// Converts between the native text of a path and the text that its users see, unit for unit.
template <class NativeChar, class Char>
struct path_traits {
    /// The string type of native text.
    using native_string = std::basic_string<NativeChar>;
    /// The string type of the text that users see.
    using string = std::basic_string<Char>;

    /// Returns native text, one unit for each unit of the source.
    static native_string to_native(string const & text) { return {text.begin(), text.end()}; }
    /// Returns the text of native text, one unit for each unit of the source.
    static string from_native(native_string const & text) { return {text.begin(), text.end()}; }
};

} // namespace detail

/// A path held as native text, with a view of it as text of another character type.
///
/// The text is kept as given: nothing is normalised, checked or looked up. Two paths are equal when their
/// texts are.
template <class NativeChar, class Char, class Traits>
class basic_path {
public:
    /// The string type of native text.
    using native_string_type = std::basic_string<NativeChar>;
    /// The string type of the text that users see.
    using string_type = std::basic_string<Char>;

    basic_path() = default;
    /// Takes a text.
    basic_path(string_type const & text)
        : native_(Traits::to_native(text)) {}
    /// Takes a native text.
    basic_path(native_string_type text)
        : native_(std::move(text)) {}
    /// Takes a text that is not null and ends with NUL.
    basic_path(Char const * text)
        : basic_path(string_type(text)) {}
    /// Takes a native text that is not null and ends with NUL.
    basic_path(NativeChar const * text)
        : native_(text) {}

    /// Returns the native text.
    native_string_type const & native() const noexcept { return native_; }
    /// Returns the text converted from the native one.
    string_type string() const { return Traits::from_native(native_); }
    /// Tells whether the text is empty.
    bool empty() const noexcept { return native_.empty(); }

    /// Appends a path below this one, with one separator between them.
    ///
    /// The right path is never taken as a replacement of the left one, even when it is absolute. Nothing is
    /// inserted beside an empty path or after a drive alone ("C:" and "x" give "C:x").
    basic_path & operator/=(basic_path const & right) {
        if (this == &right) {
            return *this /= basic_path(right);
        }
        using traits = pathname_traits<NativeChar>;
        auto const is_separator = [](NativeChar c) {
            return c == traits::PATHNAME_SEPARATOR_CHARACTER ||
                   c == traits::GENERIC_PATHNAME_SEPARATOR_CHARACTER;
        };
        if (empty() || right.empty()) {
            native_ += right.native_;
            return *this;
        }
        NativeChar const last = native_.back();
        if (is_separator(last) && is_separator(right.native_.front())) {
            native_.pop_back();
        } else if (!is_separator(last) && !is_drive() && !is_separator(right.native_.front())) {
            native_ += traits::PATHNAME_SEPARATOR_CHARACTER;
        }
        native_ += right.native_;
        return *this;
    }

    /// Returns the right path below the left one, as `/=` joins them.
    friend basic_path operator/(basic_path left, basic_path const & right) {
        return std::move(left /= right);
    }
    friend bool operator==(basic_path const & left, basic_path const & right) = default;

private:
    /// Tells whether the text is a drive letter and a colon.
    bool is_drive() const {
        NativeChar const letter = native_.size() == 2 ? native_[0] : NativeChar();
        return native_.size() == 2 && native_[1] == pathname_traits<NativeChar>::VOLUME_SEPARATOR_CHARACTER &&
               ((letter >= NativeChar('A') && letter <= NativeChar('Z')) ||
                (letter >= NativeChar('a') && letter <= NativeChar('z')));
    }

    native_string_type native_;
};

/// The path type of this library.
using upath = basic_path<wchar_t, char16_t, detail::path_traits<wchar_t, char16_t>>;

/// Returns the native form of a path: backslashes for forward slashes.
///
/// With `absolute` a relative path is completed with the current directory, "C:x" with that of its drive, and
/// a path that begins with one separator with the current drive or share. Empty, long ("\\?\"), device
/// ("\\.\") and invalid paths stay as they are, and so do "." and ".." elements.
FL_I18N_API std::wstring make_native_form(upath const & path, bool absolute);

/// Returns the long form of an absolute path, under which the system reads the path as it stands.
///
/// "C:\x" becomes "\\?\C:\x" and "\\server\share\x" becomes "\\?\UNC\server\share\x"; long paths stay as they
/// are. Where the system has no drives, a path that begins with one separator stays as it is too. Any other
/// path, also one with forward slashes after its drive, throws `InvalidArgument`.
FL_I18N_API std::wstring make_native_access_form(upath const & path);

/// Returns the long form of an absolute path without redundant elements; throws as `make_native_access_form`
/// does.
///
/// The system resolves nothing in a long form. So empty and "." elements are removed, ".." with the element
/// before it (at the root alone), and behind the root forward slashes become backslashes. A separator at the
/// end stays. Where the system has no drives ".." stays, since it may follow a link.
FL_I18N_API std::wstring make_native_access_form_with_cleanup(upath const & path);

/// Tells whether a path is complete, with either kind of separator: with drive and root, with server and
/// share, or a device.
FL_I18N_API bool is_absolute(upath const & path);

/// What is known of a file.
struct file_status {
    bool exists = false;       ///< it is there
    bool is_directory = false; ///< it is there and is a directory
};

/// Asks the system for a file.
///
/// A file that is not there is a status, and so is one that cannot be there: a missing directory, drive or
/// share, a name with characters that file names cannot have, a name too long. Any other error throws its
/// exception (`AccessDenied`, `SystemError` and their like). The system is asked by the long form of the path
/// without redundant elements: any length is good, a dot or space at the end belongs to the name, and the
/// name of a device, such as "NUL", is that of a file. Windows finds a link even when its target is missing.
FL_I18N_API file_status status(upath const & path);

/// Tells whether a file exists; throws as `status` does.
FL_I18N_API bool exists(upath const & path);

/// Returns the base directory of the installation that the module (library or program) at an address belongs
/// to.
///
/// That is the module's directory, or the one above when the module is in "bin", "lib", "lib64" or a
/// directory of "lib" for one architecture ("lib/x86_64-linux-gnu"). Empty when no module holds the address.
FL_I18N_API upath get_install_path(void const * address);

/// Returns the base directory of this library's own installation.
FL_I18N_API upath get_install_path();

} // namespace fl::filesystem
