#pragma once

#include <cstdio>
#include <fl/i18n/ustring_type.hpp>
#include <string>
#include <string_view>
#include <vector>

/// What the program says and hears, in Unicode on every system.
namespace fl::tool {

/// Returns the program's arguments, without its name, in UTF-8.
std::vector<std::string> program_arguments(int argc, char const * const * argv);

/// Writes a text to a standard stream: as it is to a Windows console, in the terminal's encoding to another
/// terminal, in UTF-8 to a file or pipe. Returns whether that succeeded.
bool write(std::FILE * stream, i18n::ustring const & text);

/// Writes a UTF-8 text to standard output; throws `command_failure` when that fails.
void print(std::string_view text);

/// Tells whether somebody looks at a standard stream.
bool is_terminal(std::FILE * stream);

/// Makes a standard stream carry bytes as they are, line ends included.
void set_binary(std::FILE * stream);

/// Returns a native path in the spelling that people on this system use.
i18n::ustring display_path(i18n::ustring path);

} // namespace fl::tool
