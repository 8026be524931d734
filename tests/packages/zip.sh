#!/usr/bin/env bash
# Makes the package for Windows, unpacks it and uses it in a Wine of its own, which knows nothing of the build.
# Usage: zip.sh BUILD-DIR WORK-DIR
set -euo pipefail
# shellcheck source=tests/packages/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

build=$1 work=$2
make_packages "$build"
rm -rf "$work"
mkdir -p "$work/応用 ソフト" "$work/作業"
cd "$work/応用 ソフト"
unzip -q "$build"/packages/*.zip
prefix=$PWD/$(ls)
check_installation "$prefix" boost cli11 expat gcc-runtime gpl-3 icu mingw-w64-runtime

wine=$(dpkg -L wine64 | grep -m 1 '/wine64$')
environment=(env -i PATH=/usr/bin:/bin HOME="$HOME" LC_ALL=C.UTF-8 WINEPREFIX="$work/wine" WINEDEBUG=-all
    WINEDLLOVERRIDES=mscoree,mshtml,winemenubuilder.exe=)
"${environment[@]}" "$wine" wineboot -i </dev/null >/dev/null 2>&1
cp -r "$sources/consumer/resources" "$work/作業/"
cd "$work/作業"
check_tool "${environment[@]}" "$wine" "$prefix/bin/fl-i18n.exe"
"${environment[@]}" "$(dirname "$wine")/wineserver64" -w
rm -rf "$work"
