#pragma once

#include <memory>
#include <unicode/ucnv.h>
#include <utility>

namespace fl {

struct icu_converter_closer {
    void operator()(UConverter * converter) const noexcept { ucnv_close(converter); }
};

/// An owned ICU converter.
using icu_converter = std::unique_ptr<UConverter, icu_converter_closer>;

/// Returns a copy of a converter, which may be one that other threads copy too; null on failure.
inline icu_converter clone_converter(UConverter const * converter) {
    UErrorCode status = U_ZERO_ERROR;
    icu_converter result(ucnv_clone(converter, &status));
    return U_FAILURE(status) ? nullptr : std::move(result);
}

} // namespace fl
