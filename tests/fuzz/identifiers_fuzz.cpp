// Catalog and message identifiers, against a recogniser that takes a text apart by its colons.

#include "tests/fuzz/fuzz.hpp"

#include <algorithm>
#include <fl/i18n/catalog_id.hpp>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace fl::i18n;

bool is_token(std::string const & token) {
    static std::string const letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_";
    return !token.empty() && letters.find(token.front()) != letters.npos &&
           token.find_first_not_of(letters + "0123456789") == token.npos;
}

/// Returns the number of tokens, or 0 for a text that is no identifier.
std::size_t count_tokens(std::string const & text) {
    std::istringstream stream(text + ":");
    std::vector<std::string> tokens;
    for (std::string token; std::getline(stream, token, ':');) {
        tokens.push_back(token);
    }
    return std::all_of(tokens.begin(), tokens.end(), is_token) ? tokens.size() : 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    std::string const text(reinterpret_cast<char const *>(data), size);
    std::size_t const tokens = count_tokens(text);
    CatalogID catalog(std::string("kept:as_it_was"));
    try {
        catalog.setCatalogID(text);
        fl::fuzz::require(tokens >= 2, "a catalog identifier is accepted");
        fl::fuzz::require(catalog.getComponentName() + ":" + catalog.getSubComponentsNames() == text,
                          "the parts of a catalog identifier");
    } catch (CatalogID::badCatalogIDException const &) {
        fl::fuzz::require(tokens < 2, "a catalog identifier is refused");
        fl::fuzz::require(catalog.getCatalogID() == "kept:as_it_was", "a refused identifier changes nothing");
    }
    return 0;
}
