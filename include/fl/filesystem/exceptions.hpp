#pragma once

#include <fl/i18n/export.hpp>
#include <fl/i18n/ustring_type.hpp>

#include <exception>
#include <string>
#include <vector>

namespace fl::filesystem {

/// The base of all exceptions that path and file operations throw.
///
/// They are thrown through `boost::throw_exception`, so that `boost::current_exception` can carry them to
/// another thread.
class FL_I18N_API FsysExceptionBase : public std::exception {
public:
    /// Returns an English sentence, with the path in UTF-8 when there is one.
    char const * what() const noexcept override;
    /// Returns the path that the operation failed on; empty when there is none.
    i18n::ustring const & path() const noexcept { return path_; }
    /// Returns all paths of the operation.
    std::vector<i18n::ustring> const & paths() const noexcept { return paths_; }

protected:
    /// Makes an exception without a path.
    explicit FsysExceptionBase(std::string text);
    /// Makes an exception of one path, which completes the text.
    FsysExceptionBase(char const * text, i18n::ustring path);
    /// Makes an exception of several paths; the text is complete.
    FsysExceptionBase(std::string text, i18n::ustring path, std::vector<i18n::ustring> paths);

private:
    std::string text_;
    i18n::ustring path_;
    std::vector<i18n::ustring> paths_;
};

/// The system refuses access to the path.
class FL_I18N_API AccessDenied : public FsysExceptionBase {
public:
    /// Makes the exception for a path.
    explicit AccessDenied(i18n::ustring path);
};

/// A directory is not empty.
class FL_I18N_API DirectoryNotEmpty : public FsysExceptionBase {
public:
    /// Makes the exception for a path.
    explicit DirectoryNotEmpty(i18n::ustring path);
};

/// The file exists already.
class FL_I18N_API FileExistsError : public FsysExceptionBase {
public:
    /// Makes the exception for a path.
    explicit FileExistsError(i18n::ustring path);
};

/// The path does not name a directory.
class FL_I18N_API NotDirectoryError : public FsysExceptionBase {
public:
    /// Makes the exception for a path.
    explicit NotDirectoryError(i18n::ustring path);
};

/// The path does not exist.
class FL_I18N_API PathNotFound : public FsysExceptionBase {
public:
    /// Makes the exception for a path.
    explicit PathNotFound(i18n::ustring path);
};

/// The path is longer than the system permits.
class FL_I18N_API FileNameTooLarge : public FsysExceptionBase {
public:
    /// Makes the exception for a path.
    explicit FileNameTooLarge(i18n::ustring path);
};

/// An argument cannot be used; `what` is the message alone.
class FL_I18N_API InvalidArgument : public FsysExceptionBase {
public:
    /// Makes the exception with a message; `paths` are all paths of the operation.
    InvalidArgument(std::string message, i18n::ustring path, std::vector<i18n::ustring> paths);
};

/// The system reported an error that has no class of its own.
class FL_I18N_API SystemError : public FsysExceptionBase {
public:
    /// Makes the exception for an error code; `paths` are all paths of the operation.
    SystemError(unsigned code, i18n::ustring path, std::vector<i18n::ustring> paths);

    /// Returns the system's error code, in the numbers of Windows; an `errno` value where a function says so.
    unsigned code() const noexcept { return code_; }

private:
    unsigned code_;
};

/// No environment variable and no system setting names a directory for temporary files.
class FL_I18N_API TempEnvNotSpecified : public FsysExceptionBase {
public:
    TempEnvNotSpecified();
};

/// A file name cannot be converted.
class FL_I18N_API FileNameConversionFailure : public FsysExceptionBase {
public:
    FileNameConversionFailure();
};

/// Two path names cannot be compared.
class FL_I18N_API PathNameComparisonFailure : public FsysExceptionBase {
public:
    PathNameComparisonFailure();
};

/// A file name holds a character that cannot be converted.
class FL_I18N_API CvtInvalidCharacter : public FsysExceptionBase {
public:
    CvtInvalidCharacter();
};

} // namespace fl::filesystem
