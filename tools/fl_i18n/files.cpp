#include "tools/fl_i18n/files.hpp"

#include "tools/fl_i18n/byte_streams.hpp"
#include "tools/fl_i18n/command.hpp"

#include <algorithm>
#include <cerrno>
#include <fl/filesystem/path.hpp>
#include <fl/i18n/ustring.hpp>
#include <fstream>
#include <iterator>
#include <system_error>

namespace fl::tool {

std::filesystem::path access_path(std::string const & name) {
    if constexpr (std::is_same_v<std::filesystem::path::value_type, wchar_t>) {
        filesystem::upath const path(i18n::utf8_to_ustring(name));
        return filesystem::make_native_access_form_with_cleanup(
            filesystem::upath(filesystem::make_native_form(path, true)));
    } else {
        return to_path(name);
    }
}

void fail_on_file(std::string const & what, std::string const & name, std::error_code const & reason) {
    throw command_failure(exit_input_output, what + " " + name + ": " + reason.message());
}

std::error_code last_error() {
    return {errno != 0 ? errno : EIO, std::generic_category()};
}

std::filesystem::path to_path(std::string const & name) {
    return std::filesystem::path(std::u8string(name.begin(), name.end()));
}

std::string to_name(std::filesystem::path const & path) {
    std::u8string const name = path.generic_u8string();
    return {name.begin(), name.end()};
}

std::string read_file(std::string const & name) {
    std::filesystem::path const path = access_path(name);
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) {
        fail_on_file("cannot read", name, std::make_error_code(std::errc::is_a_directory));
    }
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(stream), {});
    if (!stream.is_open() || stream.bad()) {
        fail_on_file("cannot read", name, last_error());
    }
    return bytes;
}

void write_file(std::string const & name, std::string_view bytes) {
    byte_sink sink(name);
    sink.write(bytes);
    sink.finish();
}

std::string check_file_name(std::string const & name) {
    return name.empty() ? "the name is empty" : std::string();
}

bool is_directory(std::string const & name) {
    std::error_code ignored;
    return std::filesystem::is_directory(access_path(name), ignored);
}

std::vector<std::string> files_below(std::string const & directory, std::string_view extension) {
    std::filesystem::path const root = access_path(directory);
    std::vector<std::string> names;
    std::string last = directory;
    std::error_code error;
    std::filesystem::recursive_directory_iterator entry(root, error);
    for (; !error && entry != std::filesystem::recursive_directory_iterator(); entry.increment(error)) {
        // A path in the form for access is not to be taken apart by its elements: it has a drive among them.
        auto const rest = entry->path().native().substr(root.native().size());
        std::string const name = to_name(std::filesystem::path(rest).relative_path());
        last = directory + (directory.ends_with('/') ? "" : "/") + name;
        // A link that leads nowhere or to itself is no file.
        std::error_code ignored;
        if (name.ends_with(extension) && entry->is_regular_file(ignored)) {
            names.push_back(last);
        }
    }
    if (error) {
        fail_on_file("cannot read", last, error);
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace fl::tool
