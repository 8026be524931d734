#!/usr/bin/env bash
# PO files of real packages through the program and back, judged by gettext's own tools; and what the program makes for
# translators of these and of the shipped catalogs, judged by them and by the schemas of XLIFF.
#
# FL_I18N_PO_FILES in the environment names the directory of PO files; without it the test is skipped.
# FL_I18N_XLIFF_SCHEMAS names that of the schemas; without it they are left out.
set -uo pipefail

step=$1 # of how many files one is taken
resources=$2
program=("${@:3}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit
failures=0

if [[ ! -d ${FL_I18N_PO_FILES:-} ]] || ! command -v msgfmt >/dev/null; then
    echo "skipped: FL_I18N_PO_FILES names no directory of PO files, or gettext is not here"
    exit 77
fi

fail() { # FILE WHAT
    echo "$1: $2"
    failures=$((failures + 1))
}

# Runs the program; once more when Wine's server, which leaves after a while, left as the program came.
run() { "${program[@]}" "$@" 2>errors || { grep -q '^wine client error' errors && "${program[@]}" "$@" 2>errors; }; }
import() { run import "$1" --output "$2" "${@:3}"; }
export_to() { run export "$1" --output "$2" "${@:3}"; }
# The file as the others read it: sources of every encoding in one, without line breaks of their own.
normalized() { msgcat --no-wrap -t UTF-8 "$1" 2>/dev/null; }

# The sum of the message file made of it.
compiled() { msgfmt "$1" -o - 2>/dev/null | sha256sum; }

write_schemas() {
    local version core
    cat >extension.xsd <<'XML'
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" targetNamespace="urn:fl:i18n:exchange">
  <xs:element name="catalog" type="xs:string"/>
  <xs:element name="entry" type="xs:string"/>
</xs:schema>
XML
    for version in 1 2; do
        core=$(basename "$(ls "$FL_I18N_XLIFF_SCHEMAS"/xliff-core-$version.*.xsd)")
        cat >xliff$version.xsd <<XML
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:import namespace="urn:oasis:names:tc:xliff:document:${core:11:3}"
      schemaLocation="file://$FL_I18N_XLIFF_SCHEMAS/$core"/>
  <xs:import namespace="urn:fl:i18n:exchange" schemaLocation="extension.xsd"/>
</xs:schema>
XML
    done
}

# A catalog through XLIFF and back.
check_xliff() { # FILE CATALOG OPTION...
    local version
    for version in 1 2; do
        if ! export_to "$2" out.xlf --format xliff$version "${@:3}" || ! import out.xlf again.xml; then
            fail "$1" "XLIFF $version: $(cat errors)"
        fi
        cmp -s "$2" again.xml || fail "$1" "another catalog from XLIFF $version"
        [[ ! -f xliff$version.xsd ]] || xmllint --nonet --noout --schema xliff$version.xsd out.xlf >errors 2>&1 ||
            fail "$1" "invalid XLIFF $version: $(head -n 1 errors)"
    done
}

[[ ! -d ${FL_I18N_XLIFF_SCHEMAS:-} ]] || ! command -v xmllint >/dev/null || write_schemas
[[ -f xliff1.xsd ]] || echo "left out: the schemas of XLIFF are not here"

mapfile -t files < <(find "$FL_I18N_PO_FILES" -name '*.po' | LC_ALL=C sort)
count=0
messages=0
for ((i = 0; i < ${#files[@]}; i += step)); do
    file=${files[i]}
    if ! import "$file" catalog.xml || ! export_to catalog.xml out.po; then
        fail "$file" "$(cat errors)"
        continue
    fi
    [[ $(normalized "$file") == "$(normalized out.po)" ]] || fail "$file" "gettext reads another file"
    [[ $(compiled "$file") == "$(compiled out.po)" ]] || fail "$file" "another message file"
    ! msgfmt -c "$file" -o /dev/null 2>/dev/null || msgfmt -c out.po -o /dev/null 2>errors || fail "$file" "$(cat errors)"
    ((i % (8 * step))) || check_xliff "$file" catalog.xml
    count=$((count + 1))
    messages=$((messages + $(grep -c '<entry ' catalog.xml)))
done
((count >= 10)) || fail "$FL_I18N_PO_FILES" "few PO files"

shipped=("$resources"/*/i18n.xml)
for ((i = 0; i < ${#shipped[@]}; i += 1 + step / 4)); do
    file=${shipped[i]}
    base=(--base "$resources/en_US_POSIX/i18n.xml")
    if ! export_to "$file" first.po "${base[@]}" || ! import first.po catalog.xml ||
        ! export_to catalog.xml second.po "${base[@]}"; then
        fail "$file" "$(cat errors)"
    fi
    cmp -s first.po second.po || fail "$file" "another PO file the second time"
    [[ -z $(msgfmt -c first.po -o /dev/null 2>&1) ]] || fail "$file" "$(msgfmt -c first.po -o /dev/null 2>&1)"
    check_xliff "$file" catalog.xml "${base[@]}"
done

echo "$count PO files, $messages entries: $failures failures, $SECONDS s"
((failures == 0))
