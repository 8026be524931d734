// A small window in several languages, which its menu switches while it runs: window [--check | LOCALE]
// With --check it tries all that by itself and prints what it shows.

#include "check.hpp"
#include "tally_window.hpp"
#include "text.hpp"

#include <fl/i18n/ustring.hpp>

#include <exception>
#include <memory>
#include <string>
#include <windows.h>
// After <windows.h>, which it needs.
#include <shellapi.h>

namespace {

/// Returns the program's first argument.
std::wstring first_argument() {
    int count = 0;
    std::unique_ptr<LPWSTR, decltype(&LocalFree)> const arguments(
        CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
    return arguments && count > 1 ? arguments.get()[1] : std::wstring();
}

int run(HINSTANCE instance, int show) {
    std::wstring const argument = first_argument();
    open_catalogs();
    if (argument == L"--check") {
        check(tally_window(instance));
        return 0;
    }
    // The language is the system's, unless the command line names one.
    if (!argument.empty()) {
        fl::i18n::set_lc_messages(fl::i18n::ustring_to_utf8(fl::i18n::to_ustring(argument)));
    }
    tally_window const window(instance);
    ShowWindow(window.handle(), show);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!IsDialogMessageW(window.handle(), &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return static_cast<int>(message.wParam);
}

} // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int show) {
    try {
        return run(instance, show);
    } catch (std::exception const & failure) {
        MessageBoxW(nullptr, fl::i18n::to_wstring(fl::i18n::utf8_to_ustring(failure.what())).c_str(), nullptr,
                    MB_OK | MB_ICONERROR);
        return 1;
    }
}
