#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace fl::test {

/// The translations of one language by original text, both UTF-8, as message files (".mo") hold them.
using translations = std::map<std::string, std::string>;

/// Reads all UTF-8 message files below a directory, by language ("pt_BR").
std::map<std::string, translations> read_message_files(std::filesystem::path const & directory);

/// Returns the XML content of a catalog entry that the loader turns into exactly this UTF-8 text.
std::string to_catalog_text(std::string const & text);

} // namespace fl::test
