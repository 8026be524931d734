#pragma once

#include <string>
#include <vector>

namespace fl::tool {

/// A file and what its place says: `resources/a/ja/b/c.xml` holds the catalog "a:b:c" in the locale "ja".
struct catalog_file {
    std::string name;      ///< the path that was searched and the way from there
    std::string resources; ///< the absolute path of the directory; empty for a file without place
    std::string catalog;   ///< colon-separated, whether or not it is a catalog identifier
    std::string locale;    ///< the name of the locale's directory, whether or not it is a locale name
};

/// Returns the XML files below a directory, sorted by name, or the one file that the path names.
///
/// The directory of a file is the first that is named "resources" on the way from the path to the file, else
/// the nearest above the path, else the path itself; a file that lies
/// less deep below it than in a component and a locale has no place. Throws `command_failure` when a
/// directory cannot be read; a file that is named directly need not exist.
std::vector<catalog_file> find_catalog_files(std::string const & path);

/// Returns the language of a locale name, without territory, encoding and modifier.
std::string language_of(std::string const & locale);

/// Returns the locales whose texts the others are compared with, the first of which there is one: the one
/// that is wanted, else "en_US_POSIX", "en_US" and "en".
std::vector<std::string> base_locales(std::string const & wanted);

} // namespace fl::tool
