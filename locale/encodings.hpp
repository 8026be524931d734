#pragma once

#include "foundation/kept_encoding.hpp"

#include <string>
#include <string_view>

/// What the floors above the locale management need to know of encodings. Any thread may call these.
namespace fl::i18n::lcmgmt {

/// Returns the standard name of an encoding name or alias; empty when the encoding tables do not know it.
std::string find_standard_encoding_name(std::string_view name);

/// Returns the standard name where the tables know one, else the name unchanged.
std::string normalize_encoding_name(std::string const & name);

/// Opens a converter by the conversion library's own alias rules, failing that by the standard name and the
/// compatibility encoding that the tables give. Null when neither the library nor the tables know the name,
/// and for a name that could lead the library outside its data.
icu_converter open_encoding(std::string const & name);

/// Returns what the process keeps of an encoding; null when `open_encoding` opens no converter for the name,
/// and for a name with options.
///
/// It lives as long as the process. A name that was asked for before takes no lock.
kept_encoding const * find_encoding(std::string const & name);

/// Returns what the process keeps of the global locale's encoding; null when no converter can be opened for
/// that.
kept_encoding const * process_encoding();

/// Return the encodings that the system or the environment chose for the terminal; empty where that is the
/// global locale's.
std::string const & terminal_input_encoding();
std::string const & terminal_output_encoding();

} // namespace fl::i18n::lcmgmt
