#pragma once

#include "foundation/icu_converter.hpp"

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

/// Returns a clone of the converter that the locale management keeps for the global locale's encoding.
///
/// Null when there is none or when it cannot be cloned.
icu_converter clone_process_converter();

} // namespace fl::i18n::lcmgmt
