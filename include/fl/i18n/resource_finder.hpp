#pragma once

#include <fl/filesystem/path.hpp>
#include <fl/i18n/export.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/ustring_type.hpp>

#include <string>
#include <vector>

namespace fl::i18n {

/// Finds the localised variant of a file: the first that exists among the locale's names, in every base
/// directory.
///
/// A file pattern holds a marker, "%S" by default, in whose place each messages locale name of the locale's
/// fallback chain is tried, most specific first. All base directories are tried for one name before the next
/// name, so a more specific variant wins wherever it is. For the empty name, which stands for the unlocalised
/// file, a "_" before the marker goes too: "help_%S.xml" gives "help_ja_JP.xml", "help_ja.xml" and
/// "help.xml". Only the first marker counts; a pattern without one is tried unchanged.
///
/// A found file is returned by its absolute native path, an empty path tells that there is none. A candidate
/// that the system refuses to look at counts as missing. A locale name that cannot be one element of a path,
/// such as one with a separator, is never tried.
///
/// The chain ends with the classic locale's name when `use_classic_default` is true, and with the empty name
/// otherwise. One finder must not be used by two threads at once; the static functions may be called from any
/// thread.
class FL_I18N_API resource_finder {
public:
    /// The marker "%S".
    static char16_t const * const default_formatter;

    /// Makes a finder over directories for a locale, with the marker `formatter`.
    resource_finder(std::vector<filesystem::upath> const & base_paths, QzLocale const & locale,
                    bool use_classic_default, ustring const & formatter = default_formatter);

    /// Finds a file for the finder's locale.
    filesystem::upath find(ustring const & pattern) const;
    /// Finds a file for the finder's locale by a pattern with another marker.
    filesystem::upath find(ustring const & pattern, ustring const & formatter) const;
    /// Finds a file for another locale. `found_locale` receives the name that matched, empty when there is no
    /// file.
    filesystem::upath find(ustring const & pattern, QzLocale const & locale, ustring const & formatter,
                           std::string & found_locale) const;
    /// Finds a file for another locale with the finder's own marker.
    filesystem::upath find(ustring const & pattern, QzLocale const & locale,
                           std::string & found_locale) const;

    /// Finds a file by a pattern that is itself a full path.
    static filesystem::upath find_resource(ustring const & pattern, std::string & found_locale,
                                           QzLocale const & locale, bool use_classic_default,
                                           ustring const & formatter = default_formatter);
    /// Finds a file by a pattern that is itself a full path, without telling the name that matched.
    static filesystem::upath find_resource(ustring const & pattern, QzLocale const & locale,
                                           bool use_classic_default,
                                           ustring const & formatter = default_formatter);
    /// Finds a file over directories.
    static filesystem::upath find_resource(std::vector<filesystem::upath> const & base_paths,
                                           ustring const & pattern, std::string & found_locale,
                                           QzLocale const & locale, bool use_classic_default,
                                           ustring const & formatter = default_formatter);
    /// Finds a file over directories, without telling the name that matched.
    static filesystem::upath find_resource(std::vector<filesystem::upath> const & base_paths,
                                           ustring const & pattern, QzLocale const & locale,
                                           bool use_classic_default,
                                           ustring const & formatter = default_formatter);

    /// Adds a directory after the others. Returns false, with nothing changed, when its native form is in the
    /// list.
    bool add_base_path(filesystem::upath const & path) const;
    /// Removes a directory, by its native form. Returns false when it is not in the list.
    bool remove_base_path(filesystem::upath const & path) const;
    /// Returns a copy of the list of directories.
    std::vector<filesystem::upath> get_base_path_list() const;

    /// Returns the messages locale name of the finder's locale.
    std::string get_current_locale() const;
    /// Returns the locale name under which the last `find` succeeded; empty when it found nothing or the
    /// unlocalised file, and before any.
    std::string get_locale() const;

private:
    filesystem::upath find(ustring const & pattern, std::vector<ustring> const & locale_names,
                           ustring const & formatter) const;

    ustring formatter_;
    mutable std::vector<filesystem::upath> base_paths_;
    std::string locale_name_;
    std::vector<ustring> locale_names_;
    mutable std::string found_locale_;
};

} // namespace fl::i18n
