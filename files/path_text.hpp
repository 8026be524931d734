#pragma once

#include "conversion/output_buffer.hpp"

#include <boost/throw_exception.hpp>
#include <fl/filesystem/exceptions.hpp>
#include <fl/i18n/converter.hpp>
#include <string>

namespace fl::filesystem::detail {

/// Converts the text of a path by the operations that a `const` converter offers.
///
/// What the converter throws becomes the exception of this family: `CvtInvalidCharacter` the one of that
/// name, any other of `i18n::CvtExceptionBase`, also for a result longer than announced,
/// `FileNameConversionFailure`.
template <class To, class From>
std::basic_string<To> convert_path_text(std::basic_string<From> const & text,
                                        i18n::converter<To, From> const & with) {
    try {
        return i18n::convert_exactly(with, text.data(), text.size());
    } catch (i18n::CvtInvalidCharacter const &) {
        boost::throw_exception(CvtInvalidCharacter());
    } catch (i18n::CvtExceptionBase const &) {
        boost::throw_exception(FileNameConversionFailure());
    }
}

} // namespace fl::filesystem::detail
