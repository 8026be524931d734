#!/usr/bin/env bash
# Runs a program in many fresh processes, two at a time, each with its number as first argument.
# Usage: many_processes.sh LABEL COUNT PROGRAM [ARGUMENT]... [-- ARGUMENT-AFTER-THE-NUMBER...]
# FL_I18N_PROCESSES in the environment is another count.
set -euo pipefail

label=$1
count=${FL_I18N_PROCESSES:-$2}
shift 2
before=()
while (($#)) && [[ $1 != -- ]]; do
    before+=("$1")
    shift
done
after=("${@:2}")

# Prints a line for a process that fails, or hangs.
run_one() { # NUMBER
    local output
    output=$(timeout "${FL_I18N_PROCESS_SECONDS:-60}" "${before[@]}" "$1" "${after[@]}" 2>&1) && return
    printf 'process %s: status %s\n%s\n' "$1" $? "$output" >&2
    echo failed
}

# The numbers are shared out between two chains.
run_every_second() { # FIRST
    local number
    for ((number = $1; number < count; number += 2)); do
        run_one "$number"
    done
}
failures=$({ run_every_second 0 & run_every_second 1; wait; } | wc -l)
echo "$label: $count processes of 8 threads, $failures failures"
((failures == 0))
