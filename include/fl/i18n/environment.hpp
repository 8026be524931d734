#pragma once

#include <fl/i18n/export.hpp>
#include <fl/i18n/ustring_type.hpp>

#include <string>

/// @file
/// The environment of the process with Unicode names and values.
///
/// The functions keep the system's environment and the C runtime's copy of it consistent. None of them throws
/// for a bad argument: they report through `errno` and their result. A name in a narrow string is meant to be
/// ASCII: each byte becomes one UTF-16 unit with its sign extended (0xE9 becomes U+FFE9).
///
/// An empty name, and a name or value that holds a null character, is refused with EINVAL.
///
/// Any thread may call them. Two threads that change the same variable can come between each other's test for
/// presence and change; code that changes the environment by other means beside these functions needs a lock.
namespace fl::i18n {

/// Returns the value of a variable in the system's environment; empty when there is none. `errno` is left
/// alone unless the name is refused.
FL_I18N_API ustring getenv(ustring const & name);
/// Returns the value of a variable, as the function for `ustring` does.
FL_I18N_API ustring getenv(std::string const & name);

/// Tells whether a variable is present, empty or not, in the system's environment or in the C runtime's copy.
FL_I18N_API bool isenv(ustring const & name);
/// Tells whether a variable is present, as the function for `ustring` does.
FL_I18N_API bool isenv(std::string const & name);

/// Sets a variable. Returns 0 on success, and -1 with `errno` set on failure.
///
/// With `overwrite` 0 a variable that is present keeps its value, which is a success. An empty value removes
/// the variable when `allow_empty` is true and is refused with EINVAL otherwise. A name that holds "=" is
/// refused with EINVAL too. ENOMEM, ENAMETOOLONG and EACCES tell why the system refused. A success without a
/// call of the C runtime leaves `errno` 0.
FL_I18N_API int setenv(ustring const & name, ustring const & value, int overwrite, bool allow_empty);
/// Sets a variable, as the function for `ustring` does.
FL_I18N_API int setenv(std::string const & name, ustring const & value, int overwrite, bool allow_empty);

/// Removes a variable; one that is absent is a success. Returns and sets `errno` as `setenv` does.
FL_I18N_API int unsetenv(ustring const & name);
/// Removes a variable, as the function for `ustring` does.
FL_I18N_API int unsetenv(std::string const & name);

} // namespace fl::i18n
