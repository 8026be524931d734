#include "locale/lc_rsc_exceptions.hpp"

#include <utility>

namespace fl::i18n {

LcRscExceptionBase::LcRscExceptionBase(char const * msg_id, int kind, std::string msg_text)
    : msg_id_(msg_id)
    , kind_(kind)
    , msg_text_(std::move(msg_text)) {}

char const * LcRscExceptionBase::what() const noexcept {
    return msg_text_.c_str();
}

LcRscOpenFileFailure::LcRscOpenFileFailure(std::string const & path)
    : LcRscExceptionBase("fl:i18n:LcRscOpenFileFailure", 2, "Failed to open file " + path) {}

LcRscFileReadFailure::LcRscFileReadFailure(std::string const & path)
    : LcRscExceptionBase("fl:i18n:LcRscFileReadFailure", 3, "Failed to read file " + path) {}

LcRscParserCreationFailure::LcRscParserCreationFailure()
    : LcRscExceptionBase("fl:i18n:LcRscParserCreationFailure", 4, "Failed to create XML parser.") {}

LcRscInvalidXmlDoc::LcRscInvalidXmlDoc(int error_code, unsigned long column, unsigned long line)
    : LcRscExceptionBase("fl:i18n:LcRscInvalidXmlDoc", 5,
                         "XML Parse error detected with " + std::to_string(error_code) + " at column, " +
                             std::to_string(column) + ", on line, " + std::to_string(line) +
                             " in resource file.") {}

} // namespace fl::i18n
