#pragma once

#include <fl/i18n/ustring.hpp>

#include <filesystem>
#include <string>
#include <string_view>

namespace fl::test {

/// How many catalogs "app:critical0" and so on there are.
inline constexpr unsigned critical_catalogs = 8;

/// The files of the scenarios, in a directory that is removed with the object.
///
/// Roots are "one", "two" and "more"; "small.xml", "large.xml" and "bad.xml" are locale databases.
class fault_files {
public:
    fault_files();
    ~fault_files();
    fault_files(fault_files const &) = delete;
    fault_files & operator=(fault_files const &) = delete;

    /// Returns the native path of a file, whose name has slashes.
    i18n::ustring path(std::string_view name) const;
    /// Returns the path of a file for the C library.
    std::string name(std::string_view name) const;
    void write(std::string_view name, std::string_view bytes) const;

private:
    std::filesystem::path directory_;
};

/// Returns a catalog file with so many entries "Message0" and so on.
std::string catalog_file(std::string_view language, unsigned entries);

/// Makes the state of the process that of a new one that has read "small.xml" and has the roots "one" and
/// "two"; nothing may be held of the earlier state. The installation directory is root "one".
void renew_process_state(fault_files const & files);

/// Returns the state of the process as a text of one line for each fact.
std::string process_state();

/// Returns what can be known of the locale management alone.
std::string locale_state();

/// Returns a number that tells that the same files are open.
int open_files_mark();

} // namespace fl::test
