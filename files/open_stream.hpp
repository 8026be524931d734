#pragma once

#include <cstdio>
#include <fl/i18n/converter.hpp>
#include <fl/i18n/ustring_type.hpp>
#include <functional>
#include <string>

namespace fl::filesystem::detail {

/// Opens a file by its native path, in long form, or returns null with `errno` set.
using stream_opener = std::function<std::FILE *(std::wstring const & native_path)>;

/// Opens a file by its name under the rules of `fopen`, which tells the results.
std::FILE * open_stream(i18n::ustring const & name, i18n::converter<wchar_t, char16_t> const & with,
                        std::string const & mode, stream_opener const & open);

} // namespace fl::filesystem::detail
