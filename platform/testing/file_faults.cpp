#include "platform/testing/file_faults.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace fl::platform::testing {

namespace {

constexpr int open_errors[] = {EACCES,       EINVAL,    EINTR,  EISDIR, ELOOP,   EMFILE,
                               ENAMETOOLONG, ENFILE,    ENOENT, ENOMEM, ENOSPC,  ENOTDIR,
                               ENXIO,        EOVERFLOW, EPERM,  EROFS,  ETXTBSY, EIO};
constexpr int stat_errors[] = {EACCES, EBADF,  EFAULT,  ELOOP,     ENAMETOOLONG,
                               ENOENT, ENOMEM, ENOTDIR, EOVERFLOW, EIO};
constexpr int read_errors[] = {EIO, EAGAIN, EBADF, EINTR, EISDIR, ENOMEM, ENXIO, EOVERFLOW};
constexpr int access_errors[] = {EACCES,       EFAULT, EINVAL, EIO,     ELOOP,
                                 ENAMETOOLONG, ENOENT, ENOMEM, ENOTDIR, EROFS};
constexpr int time_errors[] = {EACCES,       EBADF,  EFAULT,  EINVAL, ELOOP,
                               ENAMETOOLONG, ENOENT, ENOTDIR, EPERM,  EROFS};
constexpr int directory_errors[] = {EACCES, EINVAL, ENAMETOOLONG, ENOENT, ENOMEM};
constexpr int path_errors[] = {EACCES, EINVAL, EIO, ELOOP, ENAMETOOLONG, ENOENT, ENOMEM, ENOTDIR};
constexpr int exclusive_errors[] = {EEXIST, EACCES, EDQUOT, EINTR,  EMFILE,
                                    ENFILE, ENOENT, ENOMEM, ENOSPC, EROFS};
constexpr int stream_errors[] = {EINVAL, ENOMEM, EBADF};
constexpr int random_errors[] = {EIO, EAGAIN, EFAULT, ENOSYS};
constexpr int setting_errors[] = {ENOMEM, EINVAL};

constexpr system_function stat_function{"stat", stat_errors};
constexpr system_function fstat_function{"fstat", stat_errors};
constexpr system_function fopen_function{"fopen", open_errors};
constexpr system_function freopen_function{"freopen", open_errors};
constexpr system_function fread_function{"fread", read_errors};
constexpr system_function access_function{"access", access_errors};
constexpr system_function utimensat_function{"utimensat", time_errors};
constexpr system_function getcwd_function{"getcwd", directory_errors};
constexpr system_function realpath_function{"realpath", path_errors};
constexpr system_function open_function{"open", exclusive_errors};
constexpr system_function fdopen_function{"fdopen", stream_errors};
constexpr system_function getrandom_function{"getrandom", random_errors};
constexpr system_function setenv_function{"setenv", setting_errors};
constexpr system_function unsetenv_function{"unsetenv", setting_errors};

bool is_active = false;
bool has_fault = false;
bool all_further = false;
bool has_failed = false;
std::size_t fault_number = 0;
int fault_error = 0;
std::FILE * failed_stream = nullptr;
std::array<system_function const *, 1 << 16> calls; // without memory that would have to be allocated
std::size_t call_count = 0;

void start() {
    call_count = 0;
    has_failed = false;
    failed_stream = nullptr;
    is_active = true;
}

/// Counts a call. Returns whether it is to fail, with `errno` set.
bool fails(system_function const & function) {
    if (!is_active) {
        return false;
    }
    std::size_t const number = call_count++;
    calls.at(number) = &function;
    if (!has_fault || number < fault_number || (number > fault_number && !all_further)) {
        return false;
    }
    auto const & errors = function.errors;
    bool const has_error = std::find(errors.begin(), errors.end(), fault_error) != errors.end();
    errno = has_error ? fault_error : errors.front();
    has_failed = true;
    return true;
}

} // namespace

void record_calls() {
    has_fault = false;
    start();
}

void fail_call(std::size_t number, int error, bool and_all_further) {
    has_fault = true;
    fault_number = number;
    fault_error = error;
    all_further = and_all_further;
    start();
}

void stop_faults() {
    is_active = false;
}

std::vector<system_function const *> end_faults() {
    stop_faults();
    return {calls.data(), calls.data() + call_count};
}

hold_faults::hold_faults()
    : was_active_(std::exchange(is_active, false)) {}

void hold_faults::end() {
    is_active |= std::exchange(was_active_, false);
}

bool call_has_failed() {
    return has_failed;
}

} // namespace fl::platform::testing

using namespace fl::platform::testing;

// What the linker calls in place of the system's functions, and these themselves, by its option --wrap.
extern "C" {

int __real_stat(char const * path, struct stat * information);
int __real_fstat(int descriptor, struct stat * information);
std::FILE * __real_fopen(char const * path, char const * mode);
std::FILE * __real_freopen(char const * path, char const * mode, std::FILE * stream);
std::size_t __real_fread(void * buffer, std::size_t size, std::size_t count, std::FILE * stream);
int __real_ferror(std::FILE * stream);
int __real_access(char const * path, int mode);
int __real_utimensat(int directory, char const * path, timespec const * times, int flags);
char * __real_getcwd(char * buffer, std::size_t size);
char * __real_realpath(char const * path, char * resolved);
int __real_open(char const * path, int flags, int mode);
std::FILE * __real_fdopen(int descriptor, char const * mode);
ssize_t __real_getrandom(void * buffer, std::size_t size, unsigned flags);
int __real_setenv(char const * name, char const * value, int overwrite);
int __real_unsetenv(char const * name);

int __wrap_stat(char const * path, struct stat * information) {
    return fails(stat_function) ? -1 : __real_stat(path, information);
}

int __wrap_fstat(int descriptor, struct stat * information) {
    return fails(fstat_function) ? -1 : __real_fstat(descriptor, information);
}

std::FILE * __wrap_fopen(char const * path, char const * mode) {
    return fails(fopen_function) ? nullptr : __real_fopen(path, mode);
}

std::FILE * __wrap_freopen(char const * path, char const * mode, std::FILE * stream) {
    if (!fails(freopen_function)) {
        return __real_freopen(path, mode, stream);
    }
    int const code = errno;
    std::fclose(stream);
    errno = code;
    return nullptr;
}

std::size_t __wrap_fread(void * buffer, std::size_t size, std::size_t count, std::FILE * stream) {
    if (!fails(fread_function)) {
        return __real_fread(buffer, size, count, stream);
    }
    failed_stream = stream;
    return 0;
}

int __wrap_ferror(std::FILE * stream) {
    return is_active && failed_stream == stream ? 1 : __real_ferror(stream);
}

int __wrap_access(char const * path, int mode) {
    return fails(access_function) ? -1 : __real_access(path, mode);
}

int __wrap_utimensat(int directory, char const * path, timespec const * times, int flags) {
    return fails(utimensat_function) ? -1 : __real_utimensat(directory, path, times, flags);
}

char * __wrap_getcwd(char * buffer, std::size_t size) {
    return fails(getcwd_function) ? nullptr : __real_getcwd(buffer, size);
}

char * __wrap_realpath(char const * path, char * resolved) {
    return fails(realpath_function) ? nullptr : __real_realpath(path, resolved);
}

int __wrap_open(char const * path, int flags, int mode) {
    return fails(open_function) ? -1 : __real_open(path, flags, mode);
}

std::FILE * __wrap_fdopen(int descriptor, char const * mode) {
    return fails(fdopen_function) ? nullptr : __real_fdopen(descriptor, mode);
}

ssize_t __wrap_getrandom(void * buffer, std::size_t size, unsigned flags) {
    return fails(getrandom_function) ? -1 : __real_getrandom(buffer, size, flags);
}

int __wrap_setenv(char const * name, char const * value, int overwrite) {
    return fails(setenv_function) ? -1 : __real_setenv(name, value, overwrite);
}

int __wrap_unsetenv(char const * name) {
    return fails(unsetenv_function) ? -1 : __real_unsetenv(name);
}

} // extern "C"
