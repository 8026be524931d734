#include "check.hpp"

#include "text.hpp"

#include <fl/i18n/ustring.hpp>

#include <array>
#include <cstdio>
#include <string>

using namespace fl::i18n;

namespace {

using buffer = std::array<wchar_t, 512>;

void print(std::wstring const & line) {
    std::string const bytes = ustring_to_utf8(to_ustring(line)) + "\n";
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

std::wstring text_of(HWND window) {
    buffer text{};
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return text.data();
}

void print_menu(HMENU menu, std::wstring const & indentation) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        buffer text{};
        auto const position = static_cast<UINT>(i);
        GetMenuStringW(menu, position, text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
        HMENU const below = GetSubMenu(menu, i);
        bool const is_checked = !below && (GetMenuState(menu, position, MF_BYPOSITION) & MF_CHECKED);
        print(indentation + text.data() + (is_checked ? L" *" : L""));
        if (below) {
            print_menu(below, indentation + L"  ");
        }
    }
}

void handle_messages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        DispatchMessageW(&message);
    }
}

void send(HWND window, int command) {
    PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(command), 0);
    handle_messages();
}

/// Runs within the message box's own loop: prints what it says and closes it.
void CALLBACK answer_message_box(HWND window, UINT, UINT_PTR timer, DWORD) {
    constexpr int text_of_message_box = 0xFFFF;
    if (HWND const box = GetLastActivePopup(window); box != window) {
        KillTimer(window, timer);
        buffer text{};
        GetDlgItemTextW(box, text_of_message_box, text.data(), static_cast<int>(text.size()));
        print(L"[" + text_of(box) + L"] " + text.data());
        PostMessageW(box, WM_COMMAND, IDOK, 0);
    }
}

} // namespace

void check(tally_window const & window) {
    HWND const handle = window.handle();
    for (std::size_t i = 0; i < languages.size(); ++i) {
        send(handle, command_language + static_cast<int>(i));
        print(L"== " + text_of(handle));
        print_menu(GetMenu(handle), L"");
        print(text_of(GetDlgItem(handle, command_count)) + L" | " +
              text_of(GetDlgItem(handle, command_reset)));
        print(text_of(GetDlgItem(handle, status_label)));
        for (int clicks = 0; clicks < 3; ++clicks) {
            PostMessageW(GetDlgItem(handle, command_count), BM_CLICK, 0, 0);
            handle_messages();
            print(text_of(GetDlgItem(handle, status_label)));
        }
        bool const is_mirrored = GetWindowLongPtrW(handle, GWL_EXSTYLE) & WS_EX_LAYOUTRTL;
        print(is_mirrored ? L"from right to left" : L"from left to right");
        SetTimer(handle, 1, 10, answer_message_box);
        send(handle, command_about);
        send(handle, command_reset);
    }
}
