#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

/// Files that are too large to hold, and the standard streams, as bytes.
namespace fl::tool {

/// The bytes of a file or, without a name, of standard input. The operations throw `command_failure`.
class byte_source {
public:
    explicit byte_source(std::string const & name);

    /// Returns up to this many of the next bytes; fewer only at the end.
    std::string read(std::size_t count);
    /// Returns the size of the file; 0 for standard input.
    std::uint64_t size() const;
    /// Returns the name for people.
    std::string display_name() const;

private:
    std::string name_;
    std::ifstream file_;
};

/// Writes a file whole or not at all or, without a name, to standard output. A link stays one and its file is
/// written, a file that is there keeps its permissions, and a device or pipe gets the bytes at once. The
/// operations throw `command_failure`.
class byte_sink {
public:
    explicit byte_sink(std::string const & name);
    /// Removes what was written of a file that was not finished; an old file stays.
    ~byte_sink();
    byte_sink(byte_sink const &) = delete;
    byte_sink & operator=(byte_sink const &) = delete;

    void write(std::string_view bytes);
    /// Puts the file in its place. Nothing can be written afterwards.
    void finish();

private:
    void remove_unfinished() const;
    [[noreturn]] void fail() const;

    std::string name_;
    std::filesystem::path target_;
    std::filesystem::path written_; ///< the file that is open: one beside the target, or the target
    std::ofstream file_;
};

} // namespace fl::tool
