#pragma once

namespace fl::i18n::lcmgmt {

/// The name and the encoding of the classic locale.
inline constexpr char classic_name[] = "en_US_POSIX";
inline constexpr char classic_encoding[] = "UTF-8";

} // namespace fl::i18n::lcmgmt
