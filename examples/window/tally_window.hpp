#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>

/// The numbers of the controls and menu items; `command_language` is that of the first language.
enum command : int {
    status_label = 1,
    command_count,
    command_reset,
    command_exit,
    command_about,
    command_language
};

/// A window that counts clicks and speaks the language that its menu says.
class tally_window {
public:
    /// Creates the window, not yet shown; throws `std::system_error`.
    explicit tally_window(HINSTANCE instance);
    ~tally_window();
    tally_window(tally_window const &) = delete;
    tally_window & operator=(tally_window const &) = delete;

    HWND handle() const noexcept { return window_; }

private:
    struct delete_font {
        void operator()(HFONT font) const noexcept { DeleteObject(font); }
    };

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    LRESULT handle_message(UINT message, WPARAM wparam, LPARAM lparam);
    void create_controls();
    void run_command(int command);
    void choose_language(std::size_t language);
    void show_texts();
    void show_menu();
    void show_status();
    void show_about();
    void set_direction();
    void set_font();
    void lay_out();
    int width_of(HWND control) const;
    /// Returns a length given for a screen of 96 dots per inch in this screen's dots.
    int scaled(int length) const;

    HINSTANCE instance_;
    HWND window_ = nullptr;
    std::unique_ptr<std::remove_pointer_t<HFONT>, delete_font> font_;
    std::int64_t clicks_ = 0;
};
