#include <fl/i18n/message_catalog.hpp>

namespace fl::i18n {

char const * MessageCatalog::MessageCatalogNotInitialized::what() const noexcept {
    return "Message Catalog has not been initialized by a successful call to "
           "MessageCatalog::MessageCatalogInit";
}

char const * MessageCatalog::MessageCatalogIncorrectRoot::what() const noexcept {
    return "Incorrect Message Root Set";
}

MessageCatalog::MessageCatalogLoadFailed::MessageCatalogLoadFailed(std::string const & catalog)
    : text_("Message Catalog " + catalog +
            " was not loaded from the file. Please check file location, format or contents") {}

char const * MessageCatalog::MessageCatalogLoadFailed::what() const noexcept {
    return text_.c_str();
}

MessageCatalog::MessageNotFound::MessageNotFound(std::string const & catalog, std::string const & key)
    : text_("Message Key " + key + " was not found in the catalog " + catalog) {}

char const * MessageCatalog::MessageNotFound::what() const noexcept {
    return text_.c_str();
}

char const * MessageCatalog::InvalidPathSupplied::what() const noexcept {
    return "Path is not valid!";
}

char const * MessageCatalog::ResDirNotPresent::what() const noexcept {
    return "Resource directory not found on the path!";
}

char const * MessageCatalog::ResourcePathNotFound::what() const noexcept {
    return "Resource path not found!";
}

MessageCatalog::ResPathRemovalUnknownError::ResPathRemovalUnknownError(std::string const & error)
    : text_("Unknown error while removal of path! Error : " + error) {}

char const * MessageCatalog::ResPathRemovalUnknownError::what() const noexcept {
    return text_.c_str();
}

char const * MessageCatalog::MessageFormatIncorrect::what() const noexcept {
    return "Incorrect Message Formatting Attempted";
}

MessageCatalog::IncorrectHoleCount::IncorrectHoleCount(std::uint64_t expected, std::uint64_t found)
    : expected_(expected)
    , found_(found)
    , text_("Incorrect number of parameters supplied. Expected : " + std::to_string(expected) +
            " but found : " + std::to_string(found)) {}

char const * MessageCatalog::IncorrectHoleCount::what() const noexcept {
    return text_.c_str();
}

std::uint64_t MessageCatalog::IncorrectHoleCount::getNumHolesExpected() const noexcept {
    return expected_;
}

std::uint64_t MessageCatalog::IncorrectHoleCount::getNumHolesFound() const noexcept {
    return found_;
}

} // namespace fl::i18n
