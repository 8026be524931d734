#include "tools/fl_i18n/console.hpp"

#include <algorithm>
#include <fcntl.h>
#include <fl/i18n/ustring.hpp>
#include <io.h>
#include <memory>
#include <windows.h>
// After <windows.h>, which it needs.
#include <shellapi.h>

namespace fl::tool {

namespace {

/// Returns the console behind a stream; null when there is none.
HANDLE console_of(std::FILE * stream) {
    auto const handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) ? handle : nullptr;
}

bool write_to_console(HANDLE console, std::wstring const & text) {
    constexpr std::size_t most_at_once = 8192;
    for (std::size_t done = 0; done < text.size();) {
        DWORD written = 0;
        auto const length = static_cast<DWORD>(std::min(text.size() - done, most_at_once));
        if (!WriteConsoleW(console, text.data() + done, length, &written, nullptr) || written == 0) {
            return false;
        }
        done += written;
    }
    return true;
}

} // namespace

std::vector<std::string> program_arguments(int, char const * const *) {
    // The narrow arguments have lost what the code page does not hold.
    int count = 0;
    std::unique_ptr<LPWSTR, decltype(&LocalFree)> const arguments(
        CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
    std::vector<std::string> result;
    for (int i = 1; i < count; ++i) {
        result.push_back(i18n::ustring_to_utf8(i18n::to_ustring(arguments.get()[i])));
    }
    return result;
}

bool write(std::FILE * stream, i18n::ustring const & text) {
    if (HANDLE const console = console_of(stream)) {
        return std::fflush(stream) == 0 && write_to_console(console, i18n::to_wstring(text));
    }
    std::string const bytes = i18n::ustring_to_utf8(text);
    return std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() && std::fflush(stream) == 0;
}

bool is_terminal(std::FILE * stream) {
    return console_of(stream) != nullptr;
}

void set_binary(std::FILE * stream) {
    _setmode(_fileno(stream), _O_BINARY);
}

i18n::ustring display_path(i18n::ustring path) {
    return path;
}

} // namespace fl::tool
