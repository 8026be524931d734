#pragma once

namespace fl::i18n {

/// Chooses how a double is written into a message hole that has no format of its own.
///
/// "Short" formats have 4 fraction digits, "long" ones 15; `engineering_long` has 15 significant digits. The
/// "shortest" formats round to 4 fraction digits or 5 significant ones (15 or 15), whichever keeps more, drop
/// trailing zeros and take the scientific notation unless the simple one is shorter. Any other value means
/// `simple_short`.
enum class numeric_format : unsigned {
    simple_short = 1,
    simple_long = 2,
    scientific_short = 3,
    scientific_long = 4,
    shortest_short = 5,
    shortest_long = 6,
    engineering_short = 12,
    engineering_long = 13,
};

} // namespace fl::i18n
