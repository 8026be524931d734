#include "bench/contest.hpp"

#include <algorithm>
#include <numeric>
#include <utility>

namespace fl::bench {

namespace {

/// A small generator, so that a text costs no more than its letters.
std::uint32_t next_random(std::uint64_t & state) {
    state += 0x9E37'79B9'7F4A'7C15U;
    std::uint64_t mixed = (state ^ (state >> 30)) * 0xBF58'476D'1CE4'E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D0'49BB'1331'11EBU;
    return static_cast<std::uint32_t>(mixed >> 32);
}

char random_letter(std::uint64_t & state) {
    return static_cast<char>('a' + next_random(state) % 26);
}

} // namespace

std::string key_of(std::uint32_t message) {
    std::uint64_t state = message;
    std::string key(25, 'K');
    std::generate(key.begin() + 1, key.end(), [&state] { return random_letter(state); });
    return key;
}

std::string text_of(std::uint32_t message) {
    std::uint64_t state = ~std::uint64_t{message};
    std::string text(58, ' ');
    for (std::size_t i = 0; i < text.size(); ++i) {
        // Words of six letters, with an ending that is no blank.
        text[i] = i % 7 == 6 ? ' ' : random_letter(state);
    }
    return text;
}

std::vector<std::uint32_t> permutation(std::uint32_t count) {
    std::vector<std::uint32_t> result(count);
    std::iota(result.begin(), result.end(), 0U);
    std::uint64_t state = 5;
    for (std::uint32_t i = count; i > 1; --i) {
        std::swap(result[i - 1], result[next_random(state) % i]);
    }
    return result;
}

contest_messages const & messages() {
    static contest_messages const result = [] {
        contest_messages made;
        for (std::uint32_t const i : permutation(message_count)) {
            std::string const text = text_of(i);
            made.keys.push_back(key_of(i));
            made.narrow_texts.push_back(text);
            made.texts.emplace_back(text.begin(), text.end());
        }
        return made;
    }();
    return result;
}

} // namespace fl::bench
