#!/usr/bin/env bash
# Tells which object files of the library refer to what a library has no business with, beside those that are known to.
# Usage: calls.sh NM OBJECT...
set -euo pipefail
export LC_ALL=C

nm=$1
shift

# What is required of the library: a diagnostic that a variable of the environment switches on.
known='^encoding_diagnostics std::cout$'

# On the console; the end of the process; what is done when a thread ends, which a DLL may be gone by; one-time calls that
# hang after an exception; pointers that are swapped under a lock that is hidden.
forbidden='((__mingw_|__)?v?f?printf(_chk)?|puts|putchar|fputs|fputc|perror|stdout|stderr|__acrt_iob_func|_cprintf)
(std::(cout|cerr|clog|wcout|wcerr|wclog)|WriteConsole[AW]|GetStdHandle|OutputDebugString[AW]|MessageBox[AW])
(abort|exit|_exit|_Exit|quick_exit|raise|kill|std::terminate\(\)|ExitProcess|TerminateProcess|__assert_fail|_w?assert)
(__cxa_thread_atexit(_impl)?|__tlregdtor|__once_proxy|std::__once_.*|pthread_once)
(std::_Sp_locker::.*)'
pattern=$(paste -sd '|' <<<"$forbidden")

references=$("$nm" -A -C "$@" | sed -nE 's,^([^:]*/)?([^/.:]+)\.[^:]*:[ 0-9a-f]*([A-Za-z]) (__imp_)?(.*)$,\2 \5,p')
found=$(grep -E "^[^ ]+ ($pattern)$" <<<"$references" | grep -vE "$known" | sort -u) || true
if [[ -n $found ]]; then
    echo "$found" >&2
    exit 1
fi
echo "$# objects with $(wc -l <<<"$references") symbols, none that is forbidden"
