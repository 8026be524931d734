# shellcheck shell=bash
# Pictures of the example with a window, as Wine draws it on a display in memory.

screenshot_packages=(wine64 xvfb netpbm fonts-wine fonts-dejavu-core fonts-vlgothic)
screenshot_locales=(en_US_POSIX ja_JP ar)
declare -A screenshot_font=([en_US_POSIX]='DejaVu Sans' [ja_JP]='VL PGothic' [ar]='DejaVu Sans')

# Starts an X server on a free display whose picture is a file in a folder. Leaves its number and its process.
start_display() { # FOLDER
    mkfifo "$1/number"
    Xvfb -displayfd 7 -screen 0 640x480x24 -fbdir "$1" 7<>"$1/number" >"$1/log" 2>&1 &
    display_process=$!
    read -r -t 30 display_number <>"$1/number" || die "Xvfb did not start: $(cat "$1/log")"
}

# Has Wine draw title bars itself, with the symbols of their buttons, and smooth its letters.
set_up_drawing() {
    set_in_registry 'HKCU\Software\Wine\X11 Driver' Managed REG_SZ N
    set_in_registry 'HKCU\Control Panel\Desktop' FontSmoothing REG_SZ 2
    set_in_registry 'HKCU\Control Panel\Desktop' FontSmoothingType REG_DWORD 1
    set_in_registry 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\Fonts' Marlett REG_SZ \
        'Z:\usr\share\wine\fonts\marlett.ttf'
}

set_in_registry() { # KEY NAME TYPE VALUE
    "$root/tools/dev/wine.sh" reg add "$1" /v "$2" /t "$3" /d "$4" /f >/dev/null </dev/null
}

# Waits until the picture shows something and no longer changes, and cuts out the window.
take_picture() { # X-PICTURE PNG
    local before='' now i
    for ((i = 0; i < 60; ++i)); do
        sleep 0.5
        now=$(xwdtopnm -quiet "$1" | pnmcut -height 300 | tee "$1.pnm" | md5sum)
        if [[ $now == "$before" ]] && (($(pnmtopnm -quiet "$1.pnm" | ppmhist -quiet -noheader | wc -l) > 8)); then
            pnmcrop -quiet -black "$1.pnm" | pnmtopng -quiet >"$2"
            return
        fi
        before=$now
    done
    die "no window appeared"
}

command_screenshot() {
    (($# == 0)) || die "usage: ./dev screenshot"
    need_packages "${screenshot_packages[@]}"
    prepare_target windows
    build_target windows example_window || die "building the example failed"
    local folder locale display_number display_process program
    folder=$(mktemp -d)
    start_display "$folder"
    # shellcheck disable=SC2064 # the values are those of now
    trap "kill $display_process; rm -rf '$folder'" EXIT
    export FL_I18N_DISPLAY=:$display_number
    set_up_drawing
    mkdir -p "$root/docs"
    for locale in "${screenshot_locales[@]}"; do
        set_in_registry 'HKCU\Software\Wine\Fonts\Replacements' Tahoma REG_SZ "${screenshot_font[$locale]}"
        "$root/tools/dev/wine.sh" "$root/build/windows/examples/window/bin/window.exe" "$locale" </dev/null \
            >/dev/null 2>&1 &
        program=$!
        take_picture "$folder/Xvfb_screen0" "$root/docs/window-${locale%%_*}.png"
        kill "$program"
        wait "$program" || true
        say "[screenshot] docs/window-${locale%%_*}.png"
    done
}
