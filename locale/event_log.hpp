#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fl::i18n::lcmgmt {

/// The events of the locale management, in the order in which they happened. Not synchronised.
class event_log {
public:
    /// Adds "source - message".
    void add(std::string_view source, std::string_view message);

    /// Adds "source - message - status".
    void add_error(std::string_view source, std::string_view message, int status);

    std::vector<std::string> const & entries() const noexcept { return entries_; }

private:
    std::vector<std::string> entries_;
};

} // namespace fl::i18n::lcmgmt
