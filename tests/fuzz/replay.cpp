#include "tests/fuzz/fuzz.hpp"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

namespace {

/// Gives the bytes of a file to the target, in memory of exactly their size.
void replay(std::filesystem::path const & file) {
    std::ifstream stream(file, std::ios::binary);
    std::vector<char> const bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    std::cerr << file.filename().string() << '\n';
    LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const *>(bytes.data()), bytes.size());
}

} // namespace

/// Replays the files of the directories named, which may be missing; the file that was last named is the one
/// that ended the process.
int main(int count, char ** arguments) {
    std::size_t files = 0;
    for (int i = 1; i < count; ++i) {
        if (!std::filesystem::exists(arguments[i])) {
            continue;
        }
        for (auto const & entry : std::filesystem::directory_iterator(arguments[i])) {
            replay(entry.path());
            ++files;
        }
    }
    LLVMFuzzerTestOneInput(nullptr, 0);
    std::cout << files << " inputs replayed\n";
    return files == 0;
}
