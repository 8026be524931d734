#pragma once

namespace fl::tool {

/// What the program's exit tells its caller.
enum exit_status : int {
    exit_good = 0,
    exit_findings = 1, ///< something was found wrong, or what was asked for was not found
    exit_usage = 2,
    exit_input_output = 3,
};

} // namespace fl::tool
