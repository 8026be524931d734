#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

/// Files by names of any length and script. Names inside the program are UTF-8, as people write them.
namespace fl::tool {

std::filesystem::path to_path(std::string const & name);
std::string to_name(std::filesystem::path const & path);

/// Returns the form of a name under which the system takes it whatever its length.
std::filesystem::path access_path(std::string const & name);

/// Returns the error that `errno` names.
std::error_code last_error();

/// Throws `command_failure`: what could not be done with which file, and why.
[[noreturn]] void fail_on_file(std::string const & what, std::string const & name,
                               std::error_code const & reason);

/// Returns the bytes of a file; throws `command_failure`.
std::string read_file(std::string const & name);

/// Writes a file whole or not at all: an old file stays until the new one is complete. Throws
/// `command_failure`.
void write_file(std::string const & name, std::string_view bytes);

/// Returns what is wrong with a name that somebody gave for a file or directory: nothing, unless it is empty.
std::string check_file_name(std::string const & name);

/// Tells whether there is a directory of a name.
bool is_directory(std::string const & name);

/// Returns the names of all files below a directory whose names end in `extension` (".xml"), sorted, each
/// beginning with the directory's own name, with "/" between elements; throws `command_failure`.
std::vector<std::string> files_below(std::string const & directory, std::string_view extension);

} // namespace fl::tool
