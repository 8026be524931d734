#include "tally_window.hpp"

#include "text.hpp"

#include <algorithm>
#include <string>
#include <system_error>

namespace {

[[noreturn]] void throw_last_error(char const * what) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), what);
}

std::wstring text_of(HWND control) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    return text;
}

} // namespace

tally_window::tally_window(HINSTANCE instance)
    : instance_(instance) {
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof(window_class);
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = instance;
    window_class.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    window_class.lpszClassName = L"tally";
    if (!RegisterClassExW(&window_class)) {
        throw_last_error("RegisterClassExW");
    }
    window_ =
        CreateWindowExW(WS_EX_CONTROLPARENT, L"tally", L"", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, instance, nullptr);
    if (!window_) {
        throw_last_error("CreateWindowExW");
    }
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    create_controls();
    set_font();
    show_texts();

    RECT frame{0, 0, scaled(380), scaled(112)};
    AdjustWindowRectExForDpi(&frame, WS_OVERLAPPEDWINDOW, TRUE, 0, GetDpiForWindow(window_));
    SetWindowPos(window_, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

tally_window::~tally_window() {
    DestroyWindow(window_);
}

void tally_window::create_controls() {
    auto const create = [&](wchar_t const * type, DWORD style, int id) {
        CreateWindowExW(0, type, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), instance_, nullptr);
    };
    create(L"STATIC", SS_LEFT | SS_NOPREFIX, status_label);
    create(L"BUTTON", WS_TABSTOP | BS_DEFPUSHBUTTON, command_count);
    create(L"BUTTON", WS_TABSTOP, command_reset);
}

/// No exception may pass through the system that calls this; texts that cannot be had are none (see
/// text.hpp).
LRESULT CALLBACK tally_window::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (auto const self = reinterpret_cast<tally_window *>(GetWindowLongPtrW(window, GWLP_USERDATA))) {
        return self->handle_message(message, wparam, lparam);
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

LRESULT tally_window::handle_message(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
    case WM_COMMAND:
        run_command(LOWORD(wparam));
        return 0;
    case WM_SIZE:
        lay_out();
        return 0;
    case WM_SETFOCUS:
        SetFocus(GetDlgItem(window_, command_count));
        return 0;
    case WM_DPICHANGED: {
        auto const & frame = *reinterpret_cast<RECT const *>(lparam);
        set_font();
        SetWindowPos(window_, nullptr, frame.left, frame.top, frame.right - frame.left,
                     frame.bottom - frame.top, SWP_NOZORDER | SWP_NOACTIVATE);
        return 0;
    }
    case WM_CLOSE:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window_, message, wparam, lparam);
    }
}

void tally_window::run_command(int command) {
    switch (command) {
    case command_count:
    case command_reset:
        clicks_ = command == command_count ? clicks_ + 1 : 0;
        show_status();
        break;
    case command_exit:
        PostMessageW(window_, WM_CLOSE, 0, 0);
        break;
    case command_about:
        show_about();
        break;
    default:
        if (command >= command_language) {
            choose_language(static_cast<std::size_t>(command - command_language));
        }
    }
}

/// The messages category of the global locale decides which catalogs texts come from. Nothing is loaded
/// again: each text is asked for anew.
void tally_window::choose_language(std::size_t language) {
    if (language < languages.size() && fl::i18n::set_lc_messages(languages[language])) {
        show_texts();
    }
}

void tally_window::show_texts() {
    SetWindowTextW(window_, text("Title").c_str());
    SetDlgItemTextW(window_, command_count, text("Count").c_str());
    SetDlgItemTextW(window_, command_reset, text("Reset").c_str());
    show_menu();
    show_status();
    set_direction();
    lay_out();
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void tally_window::show_menu() {
    HMENU const bar = CreateMenu();
    auto const add_menu = [&](char const * key) {
        HMENU const menu = CreatePopupMenu();
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), text(key).c_str());
        return menu;
    };
    HMENU const file = add_menu("FileMenu");
    AppendMenuW(file, MF_STRING, command_reset, text("Reset").c_str());
    AppendMenuW(file, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(file, MF_STRING, command_exit, text("Exit").c_str());

    HMENU const language = add_menu("LanguageMenu");
    for (std::size_t i = 0; i < languages.size(); ++i) {
        AppendMenuW(language, MF_STRING, command_language + i, language_name(i).c_str());
    }
    CheckMenuRadioItem(language, 0, static_cast<UINT>(languages.size() - 1),
                       static_cast<UINT>(current_language()), MF_BYPOSITION);

    AppendMenuW(add_menu("HelpMenu"), MF_STRING, command_about, text("About").c_str());

    // The window owns its menu, but gives it up for another one.
    HMENU const old = GetMenu(window_);
    SetMenu(window_, bar);
    DestroyMenu(old);
}

void tally_window::show_status() {
    SetDlgItemTextW(window_, status_label, text("Status", {clicks_}).c_str());
}

void tally_window::show_about() {
    UINT const direction = is_right_to_left() ? MB_RTLREADING | MB_RIGHT : 0;
    MessageBoxW(window_, text("AboutText").c_str(), text("Title").c_str(),
                MB_OK | MB_ICONINFORMATION | direction);
}

/// A mirrored window turns its own coordinates round, so that the layout is written once for both directions.
/// The buttons, whose texts are in their middle, can stay as they are.
void tally_window::set_direction() {
    for (HWND const window : {window_, GetDlgItem(window_, status_label)}) {
        LONG_PTR const style = GetWindowLongPtrW(window, GWL_EXSTYLE);
        SetWindowLongPtrW(window, GWL_EXSTYLE,
                          is_right_to_left() ? style | WS_EX_LAYOUTRTL : style & ~WS_EX_LAYOUTRTL);
    }
}

void tally_window::set_font() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0,
                               GetDpiForWindow(window_));
    font_.reset(CreateFontIndirectW(&metrics.lfMessageFont));
    for (int const id : {status_label, command_count, command_reset}) {
        SendDlgItemMessageW(window_, id, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), TRUE);
    }
}

/// Gives the status the upper part and the buttons, as wide as their texts need, the lower edge.
void tally_window::lay_out() {
    RECT area{};
    GetClientRect(window_, &area);
    int const margin = scaled(16);
    int const button_height = scaled(28);
    int const button_top = area.bottom - margin - button_height;
    MoveWindow(GetDlgItem(window_, status_label), margin, margin, area.right - 2 * margin,
               std::max(button_top - 2 * margin, 0), TRUE);
    int left = margin;
    for (int const id : {command_count, command_reset}) {
        HWND const button = GetDlgItem(window_, id);
        int const width = std::max(width_of(button) + scaled(32), scaled(96));
        MoveWindow(button, left, button_top, width, button_height, TRUE);
        left += width + scaled(8);
    }
}

int tally_window::width_of(HWND control) const {
    std::wstring const text = text_of(control);
    HDC const canvas = GetDC(control);
    HGDIOBJ const old = SelectObject(canvas, font_.get());
    SIZE size{};
    GetTextExtentPoint32W(canvas, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(canvas, old);
    ReleaseDC(control, canvas);
    return size.cx;
}

int tally_window::scaled(int length) const {
    return MulDiv(length, static_cast<int>(GetDpiForWindow(window_)), USER_DEFAULT_SCREEN_DPI);
}
