#include "tools/fl_i18n/byte_streams.hpp"

#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/files.hpp"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace fl::tool {

namespace {

/// Returns the path of what a link leads to, or the link's own where it leads nowhere.
std::filesystem::path behind_link(std::filesystem::path const & link) {
    std::error_code error;
    std::filesystem::path const target = std::filesystem::canonical(link, error);
    return error ? link : target;
}

} // namespace

byte_source::byte_source(std::string const & name)
    : name_(name) {
    if (name.empty()) {
        set_binary(stdin);
        return;
    }
    if (is_directory(name)) {
        fail_on_file("cannot read", name, std::make_error_code(std::errc::is_a_directory));
    }
    errno = 0;
    file_.open(access_path(name), std::ios::binary);
    if (!file_) {
        fail_on_file("cannot read", name, last_error());
    }
}

std::string byte_source::read(std::size_t count) {
    std::string bytes(count, '\0');
    errno = 0;
    if (name_.empty()) {
        bytes.resize(std::fread(bytes.data(), 1, count, stdin));
    } else {
        file_.read(bytes.data(), static_cast<std::streamsize>(count));
        bytes.resize(static_cast<std::size_t>(file_.gcount()));
    }
    if (name_.empty() ? std::ferror(stdin) != 0 : file_.bad()) {
        fail_on_file("cannot read", display_name(), last_error());
    }
    return bytes;
}

std::uint64_t byte_source::size() const {
    std::error_code error;
    std::uint64_t const size = name_.empty() ? 0 : std::filesystem::file_size(access_path(name_), error);
    return error ? 0 : size;
}

std::string byte_source::display_name() const {
    return name_.empty() ? "standard input" : name_;
}

byte_sink::byte_sink(std::string const & name)
    : name_(name) {
    if (name.empty()) {
        set_binary(stdout);
        return;
    }
    std::error_code ignored;
    target_ = access_path(name);
    if (std::filesystem::is_symlink(target_, ignored)) {
        target_ = behind_link(target_);
    }
    auto const old = std::filesystem::status(target_, ignored);
    bool const is_special = std::filesystem::exists(old) && !std::filesystem::is_regular_file(old);
    written_ = target_;
    if (!is_special && !std::filesystem::is_symlink(target_, ignored)) {
        written_ += ".unfinished";
    }
    errno = 0;
    file_.open(written_, std::ios::binary);
    if (!file_) {
        fail();
    }
    if (std::filesystem::is_regular_file(old)) {
        std::filesystem::permissions(written_, old.permissions() | std::filesystem::perms::owner_write,
                                     ignored);
    }
}

byte_sink::~byte_sink() {
    if (file_.is_open()) {
        file_.close();
        remove_unfinished();
    }
}

void byte_sink::write(std::string_view bytes) {
    errno = 0;
    if (name_.empty()) {
        if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size()) {
            fail();
        }
    } else if (!file_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        fail();
    }
}

void byte_sink::finish() {
    errno = 0;
    if (name_.empty() ? std::fflush(stdout) != 0 : !file_.flush()) {
        fail();
    }
    file_.close();
    if (written_ != target_) {
        std::error_code error;
        std::filesystem::rename(written_, target_, error);
        if (error) {
            remove_unfinished();
            fail_on_file("cannot write", name_, error);
        }
    }
}

void byte_sink::remove_unfinished() const {
    std::error_code ignored;
    if (written_ != target_) {
        std::filesystem::remove(written_, ignored);
    }
}

void byte_sink::fail() const {
    fail_on_file("cannot write", name_.empty() ? "standard output" : name_, last_error());
}

} // namespace fl::tool
