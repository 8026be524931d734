#!/usr/bin/env bash
# The program as people call it: what it answers to what is wrong, with which status.
# Usage: program.sh PROGRAM, or program.sh EMULATOR PROGRAM
set -euo pipefail

program=("$@")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Standard error of the program has a text, and its exit status is this one.
expect() { # STATUS TEXT ARGUMENT...
    local status=0 wanted=$1 text=$2
    shift 2
    "${program[@]}" "$@" </dev/null 2>"$work/errors" || status=$?
    [[ $status == "$wanted" ]] || { echo "$*: status $status" >&2 && exit 1; }
    grep -qF -- "$text" "$work/errors" || { echo "$*: says $(cat "$work/errors")" >&2 && exit 1; }
}

expect 2 'no command "nosuch"' nosuch locale
expect 2 'the name is empty' convert --from UTF-8 --to UTF-8 ''
expect 2 'the name is empty' convert --from UTF-8 --to UTF-8 --output ''
expect 2 'the name is empty' coverage ''
expect 3 'the output cannot be written' --help >/dev/full
expect 3 'cannot write standard output' convert --from UTF-8 --to UTF-16 "$0" >/dev/full

# What was made from an XLIFF file of others becomes only that again; a template has no translations.
cat >"$work/others.xlf" <<'XML'
<xliff version="1.2" xmlns="urn:oasis:names:tc:xliff:document:1.2"><file source-language="en"><body><trans-unit id="a"><source>a</source></trans-unit></body></file></xliff>
XML
expect 0 '1 messages, 1 untranslated' import "$work/others.xlf" --output "$work/others.xml"
expect 2 'becomes only that again' export "$work/others.xml" --output "$work/others.po"
echo '<rsccat><message><entry key="a">a</entry></message></rsccat>' >"$work/own.xml"
expect 0 '1 messages, 1 untranslated' export "$work/own.xml" --output "$work/own.pot"
expect 0 '1 messages, 0 untranslated' export "$work/own.xml" --output "$work/own.po"

# Each command once as people call it, with what it found in its status.
expect 3 'no root has a directory "resources"' lookup app:ui:Found --root "$work"
mkdir -p "$work/resources/app/en_US_POSIX"
echo '<rsccat><message><entry key="Found">{0} of {1}</entry><entry key="Open">{</entry></message></rsccat>' \
    >"$work/resources/app/en_US_POSIX/ui.xml"
answers() { # STATUS TEXT ARGUMENT...
    local status=0 wanted=$1 text=$2
    shift 2
    "${program[@]}" "$@" </dev/null 2>&1 | tr -d '\r' | tr '\\' / >"$work/output" || status=${PIPESTATUS[0]}
    [[ $status == "$wanted" ]] && grep -qF -- "$text" "$work/output" ||
        { cat "$work/output" >&2 && echo "$*: status $status, or does not say $text" >&2 && exit 1; }
}
answers 2 'is no message identifier' lookup app
answers 2 '--arg' lookup app:ui:Found --root "$work" --arg i:3x
answers 0 '3 of 2.5' lookup app:ui:Found --root "$work" --arg i:3 --arg d:2.5
answers 0 '/resources/app/en_US_POSIX/ui.xml' lookup app:ui:Found --root "$work" --arg i:3 --arg s:4 --explain
answers 1 'Missing' lookup app:ui:Missing --root "$work" --explain
answers 0 'app:ui' coverage "$work"
answers 0 '"app:ui"' coverage "$work" --format json
answers 0 '1 text is no message pattern' pseudo "$work/resources/app/en_US_POSIX/ui.xml"
answers 0 'system setting' locale
printf 'a\xFFb\n' >"$work/bytes"
answers 1 'FF is malformed in UTF-8' convert --from UTF-8 --to UTF-16 "$work/bytes" --output "$work/out"
answers 1 'stopped at what cannot be converted' convert --from UTF-8 --to UTF-16 --on-error stop "$work/bytes"

# A database that breaks off is in use up to there.
mkdir "$work/database"
echo '<lcdata><locale name="qq_QQ" encoding="nonsense"/><break/></lcdata>' >"$work/database/lcdata.xml"
export QZLOCALE_LCDATA_PATH=$work/database
says() { # TEXT ARGUMENT...
    local text=$1
    shift
    { "${program[@]}" "$@" || true; } </dev/null | tr '\\' / >"$work/output"
    grep -qE -- "$text" "$work/output" || { cat "$work/output" >&2 && echo "$*: does not say $text" >&2 && exit 1; }
}
says '^encoding +nonsense +\(built-in tables, or the locale database up to its mistake\)' locale qq_QQ
says '^locale database .*/database/lcdata.xml  \(in use up to its mistake\)' doctor
says "before its mistake is in use: correct .*/database/lcdata.xml;" doctor
rm "$work/database/lcdata.xml"
says 'The built-in tables are in use: put it at .*/database/lcdata.xml,' doctor

# Terminals of other encodings, on systems that have them.
((${#program[@]} == 1)) || exit 0
terminal() { # LOCALE ARGUMENT...
    LANG=$1 script -qec "$(printf '%q ' "${program[@]}" "${@:2}")" "$work/typescript" </dev/null | tr -d '\r'
}
echo '<lcdata><locale name="qq_QQ" encoding="nonsense"/></lcdata>' >"$work/database/lcdata.xml"
[[ $(terminal qq_QQ lookup fl:i18n:QzLcInvLcName --locale ja_JP) == "ロケール名が無効です。" ]]
[[ $(terminal fr_FR.ISO-8859-1 lookup fl:i18n:LcRscOpenFileFailure --locale en --arg 's:日é') == *$'?\xE9' ]]

# Long work says on a terminal how far it is, and nothing elsewhere.
slowly="{ head -c 3000000 /dev/zero; sleep 0.7; head -c 3000000 /dev/zero; } | $(printf '%q' "${program[0]}") convert --from UTF-8 --to UTF-16 --output /dev/null"
script -qec "$slowly" "$work/typescript" </dev/null | grep -q 'piece [0-9]'
[[ -z $(bash -c "$slowly" 2>&1) ]]
