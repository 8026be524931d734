#include <fl/filesystem/exceptions.hpp>

#include "foundation/utf8.hpp"

#include <utility>

namespace fl::filesystem {

namespace {

using i18n::ustring;

std::string sentence(char const * text, ustring const & path) {
    return path.empty() ? std::string(text) : std::string(text) + ": " + to_readable_utf8(path);
}

} // namespace

FsysExceptionBase::FsysExceptionBase(std::string text)
    : text_(std::move(text)) {}

FsysExceptionBase::FsysExceptionBase(std::string text, ustring path, std::vector<ustring> paths)
    : text_(std::move(text))
    , path_(std::move(path))
    , paths_(std::move(paths)) {}

FsysExceptionBase::FsysExceptionBase(char const * text, ustring path)
    : text_(sentence(text, path))
    , path_(path)
    , paths_{std::move(path)} {}

char const * FsysExceptionBase::what() const noexcept {
    return text_.c_str();
}

AccessDenied::AccessDenied(ustring path)
    : FsysExceptionBase("Access to the path is denied", std::move(path)) {}

DirectoryNotEmpty::DirectoryNotEmpty(ustring path)
    : FsysExceptionBase("The directory is not empty", std::move(path)) {}

FileExistsError::FileExistsError(ustring path)
    : FsysExceptionBase("The file exists already", std::move(path)) {}

NotDirectoryError::NotDirectoryError(ustring path)
    : FsysExceptionBase("The path is not a directory", std::move(path)) {}

PathNotFound::PathNotFound(ustring path)
    : FsysExceptionBase("The path does not exist", std::move(path)) {}

FileNameTooLarge::FileNameTooLarge(ustring path)
    : FsysExceptionBase("The path is too long", std::move(path)) {}

InvalidArgument::InvalidArgument(std::string message, ustring path, std::vector<ustring> paths)
    : FsysExceptionBase(std::move(message), std::move(path), std::move(paths)) {}

SystemError::SystemError(unsigned code, ustring path, std::vector<ustring> paths)
    : FsysExceptionBase(sentence(("System error " + std::to_string(code)).c_str(), path), path,
                        std::move(paths))
    , code_(code) {}

TempEnvNotSpecified::TempEnvNotSpecified()
    : FsysExceptionBase("No directory for temporary files is specified.") {}

FileNameConversionFailure::FileNameConversionFailure()
    : FsysExceptionBase("The file name cannot be converted.") {}

PathNameComparisonFailure::PathNameComparisonFailure()
    : FsysExceptionBase("The path names cannot be compared.") {}

CvtInvalidCharacter::CvtInvalidCharacter()
    : FsysExceptionBase("The file name holds a character that cannot be converted.") {}

} // namespace fl::filesystem
