#!/usr/bin/env bash
# Tells which object files do something when the library is loaded, beside those that are known to.
# Usage: initialisers.sh NM OBJECT...
set -euo pipefail
export LC_ALL=C

nm=$1
shift
# The diagnostics read their variable then; the category of errors has a destructor to register, which does nothing; on
# Windows the library makes sure that it stays loaded.
known="encoding_diagnostics|configuration_manager|module"

# The initialisers of the sanitizers have a number.
found=$("$nm" -A "$@" | sed -nE 's|^([^:]*/)?([^/.:]+)\.[^:]*:.* _GLOBAL__sub_I_[^0-9].*|\2|p' | grep -vxE "$known") || true
if [[ -n $found ]]; then
    echo "dynamic initialisers in: $found" >&2
    exit 1
fi
echo "$# objects, none with an initialiser that is not known"
