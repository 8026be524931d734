#pragma once

#include <fl/i18n/ustring_type.hpp>

#include <cstdint>

namespace fl::filesystem::detail {

/// Throws the exception that a system error code stands for.
///
/// `second_path` is empty for operations on one path.
[[noreturn]] void throw_system_error(std::uint32_t code, i18n::ustring const & path,
                                     i18n::ustring const & second_path = {});

} // namespace fl::filesystem::detail
