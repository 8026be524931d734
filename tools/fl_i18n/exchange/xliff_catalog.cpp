#include "tools/fl_i18n/exchange/xliff_catalog.hpp"

#include "foundation/ascii.hpp"
#include "tools/fl_i18n/command.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace fl::tool {

namespace {

/// Makes a document that is UTF-8 say so.
void declare_utf8(std::string & document, bool decoded) {
    std::size_t const end = document.starts_with("<?xml") ? document.find("?>") : 0;
    std::size_t const name = document.find("encoding");
    if (name >= end) {
        return;
    }
    std::size_t const begin = document.find_first_of("\"'", name) + 1;
    std::size_t const length = document.find(document[begin - 1], begin) - begin;
    // What is in ASCII can get translations that are not.
    if (decoded || ascii::equal_ignoring_case(document.substr(begin, length), "US-ASCII")) {
        document.replace(begin, length, "UTF-8");
    }
}

} // namespace

std::string decode_xliff(std::string const & file, std::string bytes, bool & decoded) {
    try {
        std::string document = decode_xml(std::move(bytes), decoded);
        declare_utf8(document, decoded);
        return document;
    } catch (std::runtime_error const & failure) {
        throw command_failure(exit_input_output, file + ": " + failure.what());
    }
}

catalog catalog_from_xliff(xliff_file const & xliff, std::optional<std::string> const & locale,
                           std::string const & file, std::string const & document,
                           std::vector<std::string> & left_out) {
    bool const is_own = xliff.catalog_lines.has_value();
    catalog result = is_own ? catalog_from_own_xliff(xliff, file, document, left_out)
                            : catalog_from_foreign_xliff(xliff, document);
    std::string language = locale.value_or(is_own ? "" : xliff.target_language);
    std::replace(language.begin(), language.end(), '-', '_');
    if (!language.empty()) {
        set_attribute(result.attributes, {"locale", language});
    }
    declare_exchange_namespace(result);
    return result;
}

std::string xliff_from_catalog(catalog const & contents, export_settings const & settings, int version,
                               std::string const & name) {
    return is_foreign_xliff(contents, version) ? foreign_xliff_from_catalog(contents, version)
                                               : own_xliff_from_catalog(contents, settings, version, name);
}

} // namespace fl::tool
