#pragma once

#include "platform/platform.hpp"

#include <fl/i18n/ustring_type.hpp>

/// The environment functions over any environment. Results and `errno` are those of the public functions.
namespace fl::i18n::environment {

ustring get_variable(platform::environment_access const & access, ustring const & name);

bool is_present(platform::environment_access const & access, ustring const & name);

int set_variable(platform::environment_access & access, ustring const & name, ustring const & value,
                 int overwrite, bool allow_empty);

int remove_variable(platform::environment_access & access, ustring const & name);

} // namespace fl::i18n::environment
