#pragma once

#include <exception>
#include <string>

namespace fl::i18n {

/// The base of the errors of reading the locale database; they never leave the library.
class LcRscExceptionBase : public std::exception {
public:
    LcRscExceptionBase(char const * msg_id, int kind, std::string msg_text);

    /// Returns the message text.
    char const * what() const noexcept override;
    std::string const & msg_id() const noexcept { return msg_id_; }
    int kind() const noexcept { return kind_; }

private:
    std::string msg_id_;
    int kind_;
    std::string msg_text_;
};

/// The file cannot be opened. `path` is its narrow form in UTF-8, here and below.
class LcRscOpenFileFailure : public LcRscExceptionBase {
public:
    explicit LcRscOpenFileFailure(std::string const & path);
};

class LcRscFileReadFailure : public LcRscExceptionBase {
public:
    explicit LcRscFileReadFailure(std::string const & path);
};

class LcRscParserCreationFailure : public LcRscExceptionBase {
public:
    LcRscParserCreationFailure();
};

/// The document is malformed or not a locale database; `error_code` is Expat's.
class LcRscInvalidXmlDoc : public LcRscExceptionBase {
public:
    LcRscInvalidXmlDoc(int error_code, unsigned long column, unsigned long line);
};

} // namespace fl::i18n
