#!/usr/bin/env bash
# Compares the symbols that a shared library exports with a list, so that each is exported on purpose.
# Usage: exports.sh OBJDUMP LIBRARY LIST [--update]   (--update writes the list instead)
set -euo pipefail
export LC_ALL=C

objdump=$1 library=$2 list=$3

short_names='s/\[abi:cxx11\]//g
s/std::__cxx11::basic_string<(char|wchar_t|char16_t|char32_t), std::char_traits<\1>, std::allocator<\1> >/string<\1>/g
s/std::vector<(string<char16_t>|[a-zA-Z0-9_:]+), std::allocator<\1> >/vector<\1>/g'

exported() {
    case $library in
    *.dll) "$objdump" -p "$library" | awk '/Ordinal\/Name Pointer/ { on = 1; next } NF == 0 { on = 0 } on { print $NF }' ;;
    *) "$objdump" -T "$library" | awk '$1 ~ /^[0-9a-f]+$/ && !/\*UND\*|\*ABS\*/ { print $NF }' ;;
    esac | c++filt | sed -E "$short_names" | sort -u
}

if [[ ${4:-} == --update ]]; then
    exported >"$list"
    exit
fi
actual=$(mktemp)
trap 'rm -f "$actual"' EXIT
exported >"$actual"
if ! diff -u "$list" "$actual"; then
    echo "The exported symbols are not those listed; when the change is meant: $0 $objdump $library $list --update" >&2
    exit 1
fi
if grep -E 'icu_[0-9]+::|UChar|UConverter|UErrorCode|XML_' "$actual"; then
    echo "These symbols name types of other libraries." >&2
    exit 1
fi
echo "$(wc -l <"$actual") exported symbols as listed"
