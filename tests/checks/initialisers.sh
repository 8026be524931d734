#!/usr/bin/env bash
# Tells which object files do something when the library is loaded, beside those that are known to.
# Usage: initialisers.sh NM OBJECT...
set -euo pipefail
export LC_ALL=C

nm=$1
shift
# The diagnostics read their variable then; the category of errors and the environment have a destructor to register.
known=" encoding_diagnostics configuration_manager environment "

status=0
for object in "$@"; do
    # Those of the sanitizers have a number.
    "$nm" "$object" | grep -Eq '_GLOBAL__sub_I_[^0-9]' || continue
    name=$(basename "$object")
    if [[ $known != *" ${name%%.*} "* ]]; then
        echo "$name has a dynamic initialiser" >&2
        status=1
    fi
done
((status)) || echo "$# objects, none with an initialiser that is not known"
exit "$status"
