// Catalog and message identifiers, against a recogniser that takes a text apart by its colons.

#include "catalogs/identifier_access.hpp"
#include "tests/fuzz/fuzz.hpp"

#include <algorithm>
#include <fl/i18n/catalog_id.hpp>
#include <resource_core/identifiers.hpp>
#include <string>
#include <vector>

namespace {

using namespace fl::i18n;
using fl::fuzz::require;

bool is_token(std::string const & token) {
    static std::string const letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_";
    return !token.empty() && letters.find(token.front()) != letters.npos &&
           token.find_first_not_of(letters + "0123456789") == token.npos;
}

/// Returns the tokens of an identifier; none for a text that is no identifier.
std::vector<std::string> tokens_of(std::string const & text) {
    std::vector<std::string> tokens(1);
    for (char const c : text) {
        c == ':' ? void(tokens.emplace_back()) : tokens.back().push_back(c);
    }
    return std::all_of(tokens.begin(), tokens.end(), is_token) ? tokens : std::vector<std::string>();
}

/// Joins tokens by colons.
std::string join(std::vector<std::string> const & tokens, std::size_t begin, std::size_t end) {
    std::string text;
    for (std::size_t i = begin; i < end; ++i) {
        text += (i == begin ? "" : ":") + tokens[i];
    }
    return text;
}

std::vector<std::string> parts(CatalogID const & id) {
    return {id.getCatalogID(), id.getCatalogIDStr(), id.getComponentName(), id.getSubComponentsNames()};
}

std::vector<std::string> parts(MessageID const & id) {
    auto const [catalog, key] = detail::identifier_access::parts(id);
    return {id.getCompositeID(), id.getCompositeIDstr(), id.getCatalogID(),
            id.getMsgKey(),      std::string(catalog),   std::string(key)};
}

/// Gives a text to an identifier that holds another one, and to a new one.
template <class Refused, class Id, class Set>
void require_set(Id id, std::string const & text, Set set, std::vector<std::string> const & expected) {
    Id const copy = id;
    std::vector<std::string> const before = parts(id);
    try {
        set(id, text);
        if (text == before.front()) {
            // Any identifier takes its own text, also one that was joined.
            return require(parts(id) == before, "an identifier gets its own text");
        }
        require(!expected.empty() && parts(id) == expected, "an identifier is accepted");
        require(parts(Id(text)) == expected, "a new identifier");
    } catch (Refused const &) {
        require(expected.empty() && parts(id) == before, "an identifier is refused, and changes nothing");
    }
    require(parts(copy) == before, "a copy is left alone");
    Id moved(std::move(id));
    id = copy;
    require(parts(id) == before && (expected.empty() || parts(moved) == expected), "a moved identifier");
}

void require_joined(CatalogID const & catalog, std::string const & key) {
    try {
        MessageID const id(catalog, key);
        std::string const composite =
            catalog.getComponentName() + ":" + catalog.getSubComponentsNames() + ":" + key;
        require(!key.empty() && id.getCompositeID() == composite, "a catalog and a key are joined");
        require(id.getCatalogID() == catalog.getCatalogID() && id.getMsgKey() == key &&
                    parts(id)[4] == catalog.getCatalogID() && parts(id)[5] == key,
                "the parts of a joined identifier");
    } catch (MessageID::badMessageIDException const &) {
        require(key.empty(), "a key is refused");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    fl::fuzz::fuzz_input input(data, size);
    std::size_t const choice = input.below(6);
    std::string const text(input.rest());
    auto const tokens = tokens_of(text);
    std::size_t const count = tokens.size();
    auto const set_catalog = [](CatalogID & id, std::string const & to) { id.setCatalogID(to); };
    auto const set_message = [](MessageID & id, std::string const & to) { id.setCompositeMsgID(to); };
    CatalogID const kept(std::string("kept:as_it_was"));
    std::vector<std::string> parts_of_it;
    if (choice < 2) {
        if (count >= 2) {
            parts_of_it = {text, text, tokens.front(), join(tokens, 1, count)};
        }
        require_set<CatalogID::badCatalogIDException>(choice ? kept : CatalogID(), text, set_catalog,
                                                      parts_of_it);
        require(detail::is_identifier(text) == (count >= 2), "whether a text is an identifier");
    } else if (choice < 4) {
        if (count >= 3) {
            std::string const catalog = join(tokens, 0, count - 1);
            parts_of_it = {text, text, catalog, tokens.back(), catalog, tokens.back()};
        }
        MessageID const id = choice == 2 ? MessageID(kept, "any key") : MessageID();
        require_set<MessageID::badMessageIDException>(id, text, set_message, parts_of_it);
        auto const split = detail::split_message_id(text);
        require(split.has_value() == (count >= 3), "whether a text is a message identifier");
        require(!split || (split->catalog == parts_of_it[2] && split->key == tokens.back()),
                "the parts of a message identifier");
    } else {
        require_joined(choice == 4 ? kept : CatalogID(), text);
        require(resource_core::BaseMsgID(text).getCompositeID() == text &&
                    resource_core::BaseCatalogID(text).getCatalogID() == text &&
                    resource_core::makeInternalCatalogName(text) == text,
                "carriers keep any text");
    }
    return 0;
}
