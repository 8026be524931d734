#pragma once

#include "locale/event_log.hpp"

#include <fl/filesystem/path.hpp>
#include <fl/i18n/ustring_type.hpp>
#include <map>
#include <string>

namespace fl::i18n::lcmgmt {

/// The environment variables that steer the locale management, as read once at start-up; unset ones are
/// empty.
using environment_snapshot = std::map<std::string, ustring>;

/// Reads the variables that `environment_snapshot` holds from the environment of the process.
environment_snapshot read_environment();

/// Returns the path of the locale database: the directory and the file name that the environment names, else
/// "bin" below `install_path` and "lcdata.xml". Empty when the directory is unknown.
filesystem::upath get_lcdata_path(environment_snapshot const & environment,
                                  filesystem::upath const & install_path, event_log & log);

/// Reads the value of QZLOCALE_L10N_CONTROL: 1 for "on", 2 for "off" in any case of ASCII letters, else 0.
int read_l10n_control(ustring const & value);

} // namespace fl::i18n::lcmgmt
