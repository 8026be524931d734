#!/usr/bin/env bash
# Runs a Windows program under Wine in a prefix of this project's own: wine.sh PROGRAM [ARGUMENT]...
# The DLLs are searched in build/windows/bin after the program's own folder. The locale is the environment's.
# Windows are drawn nowhere, or on the X display that FL_I18N_DISPLAY names.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
wine=$(dpkg -L wine64 2>/dev/null | grep -m 1 '/wine64$') || {
    echo "wine.sh: wine64 is not installed (./dev deps installs it)" >&2
    exit 127
}

if [[ -n ${FL_I18N_DISPLAY:-} ]]; then
    export DISPLAY=$FL_I18N_DISPLAY
    driver=x11
else
    unset DISPLAY
    driver=null
fi
export WINEPREFIX=${FL_I18N_WINEPREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/fl_i18n/wine-$driver}
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml,winemenubuilder.exe=}
export WINEPATH="Z:${root//\//\\}\\build\\windows\\bin${WINEPATH:+;$WINEPATH}"

if [[ ! -e $WINEPREFIX/.complete ]]; then
    mkdir -p "$WINEPREFIX"
    (
        flock 9
        if [[ ! -e $WINEPREFIX/.complete ]]; then
            "$wine" wineboot -i </dev/null >/dev/null 2>&1
            "$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d "$driver" /f </dev/null >/dev/null 2>&1
            # The driver is the next start's.
            "${wine%/*}/wineserver" -w
            touch "$WINEPREFIX/.complete"
        fi
    ) 9>"$WINEPREFIX.lock"
fi
exec "$wine" "$@"
