#include <fl/i18n/converter.hpp>

namespace fl::i18n {

template class converter<char16_t, char>;
template class converter<char, char16_t>;
template class converter<char16_t, wchar_t>;
template class converter<wchar_t, char16_t>;
template class stream_converter<char16_t, char>;
template class stream_converter<char, char16_t>;
template class stream_converter<char, char>;

} // namespace fl::i18n
