#include "tools/fl_i18n/progress.hpp"

#include "tools/fl_i18n/console.hpp"

#include <fl/i18n/ustring.hpp>
#include <utility>

namespace fl::tool {

namespace {

// Nothing is shown for work that is over at once.
constexpr auto patience = std::chrono::milliseconds(500);
constexpr auto interval = std::chrono::milliseconds(100);

} // namespace

progress::progress(std::string work, std::size_t total)
    : work_(std::move(work))
    , total_(total)
    , visible_(is_terminal(stderr))
    , next_(std::chrono::steady_clock::now() + patience) {}

progress::~progress() {
    hide();
}

void progress::hide() {
    if (shown_width_ > 0) {
        show("");
    }
}

void progress::advance() {
    ++done_;
    auto const now = std::chrono::steady_clock::now();
    if (visible_ && now >= next_) {
        next_ = now + interval;
        show(work_ + " " + std::to_string(done_) + (total_ > 0 ? " of " + std::to_string(total_) : ""));
    }
}

void progress::show(std::string const & line) {
    std::string const blanks(shown_width_ > line.size() ? shown_width_ - line.size() : 0, ' ');
    write(stderr, i18n::utf8_to_ustring("\r" + line + blanks + (line.empty() ? "\r" : "")));
    shown_width_ = line.size();
}

} // namespace fl::tool
