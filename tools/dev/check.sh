# shellcheck shell=bash
# The checks that look for faults longer than the tests do. Each prints in a line how much it has looked at.

check_stages=(asan tsan faults threads fuzz valgrind soak)
fuzz_check_seconds=60

# Runs a program with its output in a log; shows the lines that count, and on failure the log's end.
counted() { # NAME COMMAND...
    local log=$root/build/check/$1.log status=0 name=$1
    shift
    mkdir -p "$root/build/check"
    "$@" >"$log" 2>&1 || status=1
    grep -E '^[a-z][a-z ]*: [0-9].*' "$log" | tee -a "$root/build/check/counts" || true
    if ((status)); then
        tail -n 30 "$log" >&2
        warn "failed: $name; the whole log: $log"
    fi
    return "$status"
}

# Runs two commands at once, each on a processor of its own.
side_by_side() { # COMMAND -- COMMAND
    local first=() status=0
    while [[ $1 != -- ]]; do
        first+=("$1")
        shift
    done
    shift
    "${first[@]}" &
    "$@" || status=1
    wait $! || status=1
    return "$status"
}

check_asan() { test_targets 1 asan; }
check_tsan() { test_targets 1 tsan; }

check_faults() {
    build_target linux fl_i18n_fault_sweep && counted faults "$root/build/linux/bin/fl_i18n_fault_sweep"
}

check_threads() {
    local linux=$root/build/tsan/bin windows=$root/build/windows/bin
    local many=$root/tests/threads/many_processes.sh
    build_target tsan && build_target windows || return 1
    counted first_use run_as tsan bash "$many" "first use" 500 \
        "$linux/fl_i18n_first_use" -- "$linux/fl_i18n_test_module.so" || return 1
    counted first_use_windows bash "$many" "first use under Wine" 300 "$root/tools/dev/wine.sh" \
        "$windows/fl_i18n_first_use.exe" -- "$windows/fl_i18n_test_module.dll" || return 1
    counted thread_mix run_as tsan "$linux/fl_i18n_thread_mix" 300
}

check_fuzz() {
    local targets
    prepare_target fuzz
    build_target fuzz fl_i18n_fuzzers || return 1
    mapfile -t targets < <(fuzz_targets)
    counted fuzz run_fuzzers "$fuzz_check_seconds" "${targets[@]}"
}

check_valgrind() {
    need_packages valgrind
    build_target linux && counted valgrind bash "$root/tests/checks/valgrind.sh" "$root/build/linux"
}

check_soak() {
    build_target linux fl_i18n_soak && build_target windows fl_i18n_soak || return 1
    side_by_side counted soak "$root/build/linux/bin/fl_i18n_soak" -- \
        counted soak_windows "$root/tools/dev/wine.sh" "$root/build/windows/bin/fl_i18n_soak.exe"
}

command_check() {
    local stage stages=("$@") failed=()
    local -A counts=()
    ((${#stages[@]})) || stages=("${check_stages[@]}")
    for stage in "${stages[@]}"; do
        [[ " ${check_stages[*]} " == *" $stage "* ]] || die "unknown stage: $stage; there are ${check_stages[*]}"
    done
    prepare_dependencies
    need_packages "${test_packages[@]}"
    prepare_message_files
    rm -f "$root/build/check/counts"
    for stage in "${stages[@]}"; do
        timed "[check] $stage" "check_$stage" || failed+=("$stage")
    done
    for stage in "${!counts[@]}"; do
        say "$stage: ${counts[$stage]}"
    done
    cat "$root/build/check/counts" 2>/dev/null || true
    ((${#failed[@]} == 0)) || die "these checks failed: ${failed[*]}"
}
