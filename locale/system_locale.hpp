#pragma once

#include "locale/event_log.hpp"
#include "locale/lc_tables.hpp"
#include "platform/platform.hpp"

#include <array>
#include <string>

namespace fl::i18n::lcmgmt {

/// What the system's settings mean in this library's terms. Encodings are names for the conversion library.
struct system_locale {
    struct category {
        std::string name;
        std::string system_name; ///< empty where the setting is no usable locale name
    };
    std::array<category, 6> categories;
    std::string encoding;                ///< of narrow text; empty where the locale's default holds
    std::string terminal_input_encoding; ///< empty where it is that of the locale, also below
    std::string terminal_output_encoding;
};

/// Reads the captured settings; a name that is no locale name becomes an event and the classic name.
system_locale read_system_locale(platform::locale_settings const & settings, lc_tables const & tables,
                                 event_log & log);

} // namespace fl::i18n::lcmgmt
