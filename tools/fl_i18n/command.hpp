#pragma once

#include <stdexcept>
#include <string>

namespace fl::tool {

/// What the program's exit tells its caller.
enum exit_status : int {
    exit_good = 0,
    exit_findings = 1, ///< something was found wrong, or what was asked for was not found
    exit_usage = 2,
    exit_input_output = 3,
};

/// Ends a command: `what` is the message, in UTF-8, and the status that of the program.
class command_failure : public std::runtime_error {
public:
    command_failure(exit_status status, std::string const & text)
        : std::runtime_error(text)
        , status_(status) {}

    exit_status status() const noexcept { return status_; }

private:
    exit_status status_;
};

} // namespace fl::tool
