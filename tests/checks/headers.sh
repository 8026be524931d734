#!/usr/bin/env bash
# Tells which headers of ICU, Expat or Windows the public headers include, directly or not.
# Usage: headers.sh INCLUDE-DIRECTORY COMPILER FLAG...
# shellcheck disable=SC1003
set -euo pipefail

include=$1
shift
headers=$(cd "$include" && find . -name '*.hpp' | sort)
included=$(sed 's|^\./|#include <|; s|$|>|' <<<"$headers" | "$@" -I "$include" -x c++ -M -)
# None would mean that nothing was looked at.
grep -q '/string$\|/string ' <<<"$included"
found=$(tr ' \\' '\n' <<<"$included" | grep -iE '/(unicode/[a-z0-9]+\.h|expat\.h|windows\.h|win(nt|base|def|user)\.h)$' |
    grep -v /boost/) || true
if [[ -n $found ]]; then
    echo "the public headers include: $found" >&2
    exit 1
fi
echo "$(wc -l <<<"$headers") headers, $(tr ' ' '\n' <<<"$included" | grep -c /) files included, none of another's interface"
