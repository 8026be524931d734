#!/usr/bin/env bash
# The manual page and the completion know what the program knows: the commands and options that --help prints, and no
# others; and what the completion offers as values the program takes.
# Usage: companion_documents.sh SOURCE-DIR PROGRAM
set -uo pipefail

source_dir=$1
PATH=$(dirname "$2"):$PATH
page=$source_dir/docs/man/fl-i18n.1
# shellcheck source=tools/completion/fl-i18n.bash
source "$source_dir/tools/completion/fl-i18n.bash"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/application/resources/app/"{de,ja} "$work/a file.txt.d"
touch "$work/application/resources/app/ja/ui.xml"
cd "$work" || exit
failures=0

expect() { # WHAT EXPECTED ACTUAL
    [[ $2 != "$3" ]] || return 0
    printf '%s\n  expected: %s\n  is:       %s\n' "$@"
    ((++failures))
}

# Completes a line whose words, as the shell divides it, have blanks between them; the last one may be empty.
complete_line() { # LINE
    read -ra COMP_WORDS <<<"$1"
    [[ $1 != *' ' ]] || COMP_WORDS+=('')
    # shellcheck disable=SC2034 # the function reads it
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    _fl_i18n
    echo "${COMPREPLY[*]}"
}

sorted() { tr ' ' '\n' | grep . | sort -u | paste -sd ' '; }
options_in() { grep -oE -- '--[a-z][a-z-]*' | sorted; }
section_of_page() { sed 's/\\-/-/g' "$page" | awk -v title="$1" '/^\.S[SH] /{on = $0 == title} on'; }

# Options are at the beginnings of lines in the help, after .TP in the page.
commands=$(fl-i18n --help | sed '1,/^Subcommands:/d' | awk '{print $1}' | sorted)
expect "commands of the completion" "$commands" "$(complete_line 'fl-i18n ' | sorted)"
expect "commands of the page" "$commands" "$(sed -n 's/^\.SS //p' "$page" | sorted)"
for command in '' $commands; do
    # shellcheck disable=SC2086 # no command is no word
    options=$(fl-i18n $command --help | sed -n 's/^  \(-h,\)\?\(--[a-z-]*\).*/\2/p' | sorted)
    expect "options of \"$command\" in the completion" "$options" "$(complete_line "fl-i18n $command${command:+ }--" | sorted)"
    if [[ -z $command ]]; then
        expect "options of the page" "$options" "$(section_of_page '.SH OPTIONS' | options_in)"
    else
        options=$(tr ' ' '\n' <<<"$options" | grep -vx -- --help | sorted)
        expect "options of \"$command\" in the page" "$options" \
            "$(section_of_page ".SS $command" | grep '^\.BI\? --' | options_in)"
        expect "options of \"$command\" in the synopsis" "$options" "$(section_of_page '.SH SYNOPSIS' |
            awk -v command="$command" '/^\.B fl-i18n/{on = $3 == command} on' | options_in)"
    fi
done

# "line | completions" a line.
rules=$(fl-i18n lint --rules | awk '{print $1}' | paste -sd ' ')
while IFS='|' read -r line expected; do
    expect "completions of: $line" "${expected# }" "$(complete_line "${line% }")"
done <<TABLE
fl-i18n co | convert coverage
fl-i18n lint --format  | text json sarif
fl-i18n lint --format = | text json sarif
fl-i18n lint --format = s | sarif
fl-i18n coverage --missing --format j | json
fl-i18n export --format xliff | xliff1 xliff2
fl-i18n lint --werror --disable  | $rules
fl-i18n lint --disable bad-k | bad-key
fl-i18n convert --on-error escape = xml | xml-decimal xml-hex
fl-i18n convert --on-error s | stop substitute
fl-i18n lookup --arg  | s: i: d:
fl-i18n lookup a : b : c --root app | application
fl-i18n lint application/res | application/resources
fl-i18n import --output a | a file.txt.d application
fl-i18n lint application --base j | ja
fl-i18n coverage application/resources/ --base d | de
fl-i18n locale zh_ | zh_CN zh_TW
fl-i18n pseudo --expansion  |
fl-i18n doctor  |
TABLE

# What the program refuses it has not been offered.
for value in $(complete_line 'fl-i18n convert --from '); do
    fl-i18n convert --from "$value" --to UTF-8 </dev/null >/dev/null || expect "encoding" known "$value unknown"
done
for value in $(complete_line 'fl-i18n convert --on-error '); do
    fl-i18n convert --from UTF-8 --to UTF-8 --on-error "$value" </dev/null >/dev/null ||
        expect "--on-error" accepted "$value refused"
done

if command -v groff >/dev/null; then
    expect "faults of the page" "" "$(groff -man -ww -z "$page" 2>&1)"
else
    echo "left out: groff is not installed"
fi

((failures == 0)) && echo "all as expected"
