#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

/// The one seam to the operating system: thin calls without policy.
///
/// `platform/windows` and `platform/posix` define them; the build chooses one. Wide strings hold UTF-16
/// units, one per `wchar_t`, on both. Error codes are the numbers of Windows on both; 0 is success.
namespace fl::platform {

/// The two environments of a process: the system's block and the C runtime's copy of it.
///
/// Where the system has only one environment both views show it. An interface, so that the rules above it
/// are tested with a fake. Nobody owns one through it, and that of the process is never destroyed.
class environment_access {
public:
    /// Copies a variable of the system block into `buffer`, which has room for `size` UTF-16 units.
    ///
    /// Returns the length without terminator when it fits, the needed size with terminator when it does not,
    /// and 0 when the variable is absent. A null `buffer` with size 0 asks for the needed size.
    virtual std::size_t get_system(char16_t const * name, char16_t * buffer, std::size_t size) const = 0;

    /// Sets a variable in the system block, or removes it when `value` is null. Returns an error code.
    virtual std::uint32_t set_system(char16_t const * name, char16_t const * value) = 0;

    /// Returns the size, with terminator, of a variable in the C runtime's copy; 0 when it is absent.
    virtual std::size_t get_runtime_size(char16_t const * name) const = 0;

    /// Sets a variable through the C runtime, or removes it when `value` is empty. Returns whether that
    /// succeeded; `errno` tells why not.
    virtual bool set_runtime(char16_t const * name, char16_t const * value) = 0;

protected:
    ~environment_access() = default;
};

/// Returns the environment of this process.
environment_access & process_environment();

/// The error codes that have a meaning above this floor.
namespace error {

inline constexpr std::uint32_t success = 0;
inline constexpr std::uint32_t file_not_found = 2;
inline constexpr std::uint32_t path_not_found = 3;
inline constexpr std::uint32_t access_denied = 5;
inline constexpr std::uint32_t not_enough_memory = 8;
inline constexpr std::uint32_t out_of_memory = 14;
inline constexpr std::uint32_t invalid_drive = 15;
inline constexpr std::uint32_t not_ready = 21;
inline constexpr std::uint32_t bad_network_path = 53;
inline constexpr std::uint32_t bad_network_name = 67;
inline constexpr std::uint32_t file_exists = 80;
inline constexpr std::uint32_t invalid_name = 123;
inline constexpr std::uint32_t directory_not_empty = 145;
inline constexpr std::uint32_t bad_path_name = 161;
inline constexpr std::uint32_t already_exists = 183;
inline constexpr std::uint32_t name_too_long = 206;
inline constexpr std::uint32_t not_a_directory = 267;
inline constexpr std::uint32_t cannot_access_file = 1920;
inline constexpr std::uint32_t not_a_reparse_point = 4390;

} // namespace error

/// What the system knows of a file.
struct file_attributes {
    bool is_directory = false;
};

/// Asks for a file by its native wide path. Returns an error code; `attributes` is set on success only.
std::uint32_t query_file(std::wstring const & native_path, file_attributes & attributes);

struct file_closer {
    void operator()(std::FILE * file) const noexcept { std::fclose(file); }
};
using file_handle = std::unique_ptr<std::FILE, file_closer>;

/// Opens a file for reading bytes, without denying others read or write access; null when that fails.
file_handle open_for_reading(std::wstring const & native_path);

/// Opens a file as `fopen` of the C runtime does, but no directory; `mode` is ASCII. Null when that fails,
/// with `errno` set.
std::FILE * open_stream(std::wstring const & native_path, std::string const & mode);

/// Opens another file in a stream as `freopen` of the C runtime does, but no directory; `mode` is ASCII.
///
/// Null when that fails, with `errno` set; the stream is closed then.
std::FILE * reopen_stream(std::wstring const & native_path, std::string const & mode, std::FILE * stream);

/// Creates a file that is not there yet and opens it in mode "wb+"; null when that fails, with `errno` set.
std::FILE * create_exclusively(std::wstring const & native_path);

/// Returns 0 when the process may read and write a file, else the `errno` value that tells why not.
int query_writability(std::wstring const & native_path);

/// Sets the time of the last write to a file or directory, in 100-nanosecond intervals since 1601-01-01 UTC.
/// Returns an error code.
std::uint32_t set_last_write_time(std::wstring const & native_path, std::uint64_t file_time);

/// Returns the directory for temporary files that every system of the kind has; empty when it cannot be told.
std::wstring system_temporary_directory();

/// Tells whether names that differ in case only are one file by the rule of the system.
bool names_ignore_case();

/// Returns the current directory as an absolute native path without trailing separator (a root keeps its
/// own).
///
/// `drive` is a drive letter for the current directory of that drive, or 0 for that of the process. Empty
/// when the system gives none.
std::wstring current_directory(wchar_t drive);

/// Tells whether a path that begins with one separator is complete: false where drives exist.
bool root_is_absolute();

/// Returns the full native path of the shared library or program that holds `address`; empty when unknown.
std::wstring module_path(void const * address);

/// The locale settings of the user and the system, as the system names them.
struct locale_settings {
    /// Per category, in `LcCategory` order: the names in the system's own form ("ja-JP", "ja_JP.UTF-8", "C"),
    /// the one that holds first, then those that hold where it cannot be used.
    std::array<std::vector<std::string>, 6> category_names;
    /// The code page of narrow text, 0 where the category name tells the encoding.
    unsigned ansi_code_page = 0;
    /// The code pages of the terminal, 0 where there is no terminal or where it uses the locale's encoding.
    unsigned terminal_input_code_page = 0;
    unsigned terminal_output_code_page = 0;
    /// Everything captured, by setting name, for people to read.
    std::map<std::string, std::string> details;
};

/// Captures the locale settings of the user and the system.
locale_settings query_locale_settings();

/// A one-time initialisation by the operating system's own means; constant-initialised, never destroyed.
class one_time {
public:
    constexpr one_time() = default;
    one_time(one_time const &) = delete;
    one_time & operator=(one_time const &) = delete;

    /// Runs `action(context)` unless an earlier run has succeeded; other threads wait for the one that runs.
    ///
    /// When `action` throws, the exception passes on and the next call runs it again.
    void run(void (*action)(void *), void * context);

private:
    void * state_ = nullptr;
};

} // namespace fl::platform
