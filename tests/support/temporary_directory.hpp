#pragma once

#include "tests/support/std_path.hpp"

#include <atomic>
#include <filesystem>
#include <fl/filesystem/path.hpp>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>

namespace fl::test {

/// A new directory for the files of one test; removed with all that is in it.
class temporary_directory {
public:
    temporary_directory() {
        static std::atomic<unsigned> count = 0;
        std::string const name =
            "fl_i18n-" + std::to_string(std::random_device()()) + "-" + std::to_string(count++);
        directory_ = std::filesystem::temp_directory_path() / name;
        if (!std::filesystem::create_directory(directory_)) {
            throw std::runtime_error("the directory exists already: " + name);
        }
    }
    ~temporary_directory() {
        std::error_code ignored;
        std::filesystem::remove_all(long_std_path(path()), ignored);
    }
    temporary_directory(temporary_directory const &) = delete;
    temporary_directory & operator=(temporary_directory const &) = delete;

    /// Returns the directory in native form.
    filesystem::upath path() const {
        return filesystem::upath(
            filesystem::make_native_form(filesystem::upath(directory_.u16string()), true));
    }

    /// Returns the directory in UTF-8, with slashes.
    std::string name() const {
        std::u8string const name = directory_.generic_u8string();
        return {name.begin(), name.end()};
    }

    /// Creates a directory with all above it; `name` has slashes.
    void make_directory(std::u16string_view name) const {
        std::filesystem::create_directories(directory_ / std::filesystem::path(name));
    }

    /// Writes a file with these bytes and creates the directories above it; `name` has slashes.
    void write(std::u16string_view name, std::string_view bytes) const {
        std::filesystem::path const file = directory_ / std::filesystem::path(name);
        std::filesystem::create_directories(file.parent_path());
        std::ofstream stream(file, std::ios::binary);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!stream.flush()) {
            throw std::runtime_error("a test file cannot be written");
        }
    }

private:
    std::filesystem::path directory_;
};

} // namespace fl::test
