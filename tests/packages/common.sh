# shellcheck shell=bash
# What the tests of packages share.

sources=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

make_packages() { # BUILD-DIR
    rm -rf "$1/packages"
    cpack --config "$1/CPackConfig.cmake"
    rm -rf "$1/packages/_CPack_Packages"
}

# What is installed has the licences of what it brings, and its data name schemas that are there.
check_installation() { # DIRECTORY LICENCE...
    local directory=$1 name file
    shift
    for name in "$@"; do
        [[ -s $directory/share/doc/fl_i18n/licences/$name.txt ]] || fail "no licence: $name"
    done
    for file in "$directory"/bin/lcdata.xml "$directory"/resources/fl/*/i18n.xml; do
        name=$(sed -n 's/^<?xml-model href="\([^"]*\)".*/\1/p' "$file")
        [[ -f $(dirname "$file")/$name ]] || fail "no schema: $file"
    done
}

# The tool finds the library's messages, and those of an application below the current directory.
check_tool() { # COMMAND...
    local text
    text=$("$@" lookup fl:i18n:QzLcInvLcName --locale ja_JP | tr -d '\r')
    [[ $text == "ロケール名が無効です。" ]] || fail "a message of the library is: $text"
    text=$("$@" lookup app:ui:Opened --locale ja_JP --root . --arg i:3 --arg i:5 | tr -d '\r')
    [[ $text == "5 個中 3 個のファイルを開きました。" ]] || fail "a message below the current directory is: $text"
}
