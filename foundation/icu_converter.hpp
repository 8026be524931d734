#pragma once

#include <memory>
#include <unicode/ucnv.h>

namespace fl {

struct icu_converter_closer {
    void operator()(UConverter * converter) const noexcept { ucnv_close(converter); }
};

/// An owned ICU converter.
using icu_converter = std::unique_ptr<UConverter, icu_converter_closer>;

} // namespace fl
