#!/usr/bin/env bash
# Tells which libraries and programs lack what makes faults harder to abuse: a place in memory that is not known
# beforehand, no memory that is both written and run, no tables of functions that stay open to writing.
# Usage: hardening.sh OBJDUMP FILE...
set -euo pipefail
export LC_ALL=C

objdump=$1
shift
faults=0
require() { # FILE WHAT PATTERN
    if ! grep -qE "$3" <<<"$headers"; then
        echo "$1: $2" >&2
        ((++faults))
    fi
}
for file; do
    headers=$("$objdump" -fp "$file")
    case $headers in
    *pei-x86-64*)
        for flag in DYNAMIC_BASE HIGH_ENTROPY_VA NX_COMPAT; do
            require "$file" "$flag is not set" "^\s+$flag$"
        done
        require "$file" "it cannot be moved" '^Entry 5 [0-9a-f]+ 0*[1-9a-f][0-9a-f]* Base Relocation'
        ;;
    *)
        require "$file" "it has one place only" '^(HAS_|D_)[^E]*DYNAMIC'
        require "$file" "its stack can be run" '^ +STACK(.|\n)*'
        stack=$(awk '/^ +STACK/ { getline; print $NF }' <<<"$headers")
        [[ $stack == rw- ]] || { echo "$file: its stack is $stack" >&2; ((++faults)); }
        require "$file" "its tables stay open to writing" '^ +RELRO '
        require "$file" "functions are bound late" '^ +FLAGS_1 +0x[0-9a-f]*[13579bdf]$'
        ;;
    esac
done
((faults == 0)) || exit 1
echo "$# files are hardened"
