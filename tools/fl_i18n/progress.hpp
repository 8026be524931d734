#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace fl::tool {

/// Shows on standard error how far a long work is, when somebody looks at it there. The line vanishes with
/// the object.
class progress {
public:
    /// `work` says in UTF-8 what is done; `total` is the number of steps, 0 when it is not known.
    progress(std::string work, std::size_t total);
    ~progress();
    progress(progress const &) = delete;
    progress & operator=(progress const &) = delete;

    /// Counts one step.
    void advance();
    /// Removes the line, for others to write theirs. It comes back with a later step.
    void hide();

private:
    void show(std::string const & line);

    std::string work_;
    std::size_t total_;
    std::size_t done_ = 0;
    std::size_t shown_width_ = 0;
    bool const visible_;
    std::chrono::steady_clock::time_point next_;
};

} // namespace fl::tool
