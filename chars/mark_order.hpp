#pragma once

#include <fl/i18n/ustring_type.hpp>

#include <string_view>

namespace fl::i18n {

/// Brings long runs of combining marks into canonical order.
///
/// To be called before a text is normalised: the conversion library inserts each mark at its place, one by
/// one, and a run of a hundred thousand would take it seconds. Returns a text that has the same normal forms:
/// the given one where no run is long, else a view of `storage`.
std::u16string_view order_long_mark_runs(std::u16string_view text, ustring & storage);

} // namespace fl::i18n
