#include "tools/fl_i18n/lint/spelling.hpp"

#include "foundation/ascii.hpp"

#include <algorithm>
#include <numeric>

namespace fl::tool::lint {

namespace {

/// Returns the number of letters to insert, remove, replace or swap with the next one to make `a` into `b`.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::vector<std::size_t>> rows(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    std::iota(rows[0].begin(), rows[0].end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        rows[i][0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            rows[i][j] = std::min({rows[i - 1][j] + 1, rows[i][j - 1] + 1,
                                   rows[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0U : 1U)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
            }
        }
    }
    return rows[a.size()][b.size()];
}

} // namespace

std::optional<std::string> guess_spelling(std::string_view word, std::vector<std::string> const & words) {
    constexpr std::size_t longest = 40;
    if (word.size() > longest) {
        return std::nullopt;
    }
    std::string const lower = ascii::to_lower(word);
    std::size_t best = std::min<std::size_t>(2, word.size() / 2) + 1;
    std::optional<std::string> guess;
    for (std::string const & candidate : words) {
        std::size_t const steps = distance(lower, ascii::to_lower(std::string_view(candidate)));
        if (steps < best) {
            best = steps;
            guess = candidate;
        } else if (steps == best) {
            guess.reset();
        }
    }
    return guess;
}

} // namespace fl::tool::lint
