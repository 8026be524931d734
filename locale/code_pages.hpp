#pragma once

#include <string>

namespace fl::i18n::lcmgmt {

/// Returns the name of the encoding that a Windows code page stands for, as the conversion library knows it;
/// empty for 0.
std::string encoding_of_code_page(unsigned code_page);

} // namespace fl::i18n::lcmgmt
