#pragma once

#include <fl/i18n/catalog_id.hpp>
#include <fl/i18n/export.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <fl/i18n/numeric_format.hpp>
#include <fl/i18n/ustring_type.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace fl::i18n {

/// The steps of a message lookup, in order.
enum class LookupStep { set_roots, find_file, load_file, find_key, fill_holes, done };

/// What one message lookup did.
struct LookupReport {
    /// A file that was looked for.
    struct Candidate {
        ustring path;        ///< in absolute native form
        bool exists = false; ///< the system has it
    };

    /// A key of the catalog cache that was consulted.
    struct CacheKey {
        std::string key;        ///< catalog identifier, colon and locale name
        bool hit = false;       ///< the cache held the catalog
        bool stored = false;    ///< the lookup put the catalog there
        std::uint64_t hits = 0; ///< how many lookups, with this one, the entry has answered
    };

    /// A hole of the message: its number or name, and its format type, empty for a plain hole.
    struct Hole {
        ustring name;     ///< a number in decimal, or a name
        std::string type; ///< such as "number" or "plural"
    };

    std::string catalog;                 ///< the catalog's identifier
    std::string key;                     ///< the message's key
    std::string messages_locale;         ///< the locale name of the messages category
    std::vector<ustring> fallback_chain; ///< the locale names to search, most specific first
    std::vector<ustring> roots;          ///< the roots in force
    std::vector<CacheKey> cache_keys;    ///< in the order in which they were consulted
    std::vector<Candidate> candidates;   ///< in the order of the search; none when the cache had the catalog
    ustring path;                        ///< the catalog's file; empty when there is none
    std::string found_locale;            ///< the locale name that the file was found for
    bool loaded = false;                 ///< the file was loaded, by this or an earlier lookup
    bool key_found = false;              ///< the catalog has the key
    ustring raw_text;                    ///< the text as the catalog holds it
    std::vector<Hole> holes;             ///< in the order in which they are written
    std::uint64_t holes_expected = 0;    ///< the number of arguments that the text takes
    std::uint64_t arguments_given = 0;   ///< the number of arguments of the call
    ustring text;                        ///< the message, when the lookup succeeded
    LookupStep step = LookupStep::set_roots; ///< `done`, or the step that failed
    std::string error;                       ///< the text of the exception that ended the lookup
};

/// Looks a message up, as `MessageCatalog::get_message` does with arguments, and reports how that went.
///
/// The lookup is a real one, with its effects on the roots and the cache. Its exceptions become part of the
/// report.
FL_I18N_API LookupReport explain_lookup(MessageID const & id, QzLocale const & locale,
                                        std::vector<MessageCatalog::Argument> const & args,
                                        std::optional<numeric_format> const & format);

} // namespace fl::i18n
