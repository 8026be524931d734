# shellcheck shell=bash
# The checks that look for faults longer than the tests do. Each prints in a line how much it has looked at.

check_stages=(asan tsan faults threads fuzz valgrind soak)
fuzz_check_seconds=60

# Runs a program with its output in a log; shows the lines that count under its name, and on failure the log's end.
counted() { # NAME COMMAND...
    local name=$1 log=$root/build/check/$1.log status=0
    shift
    "$@" >"$log" 2>&1 || status=1
    sed -nE "s/^([0-9]+: )?([a-z ]+: [0-9].*)/[$name] \\2/p" "$log" | tee -a "$root/build/check/counts"
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
    local sweep=$root/build/linux/bin/fl_i18n_fault_sweep
    build_target linux fl_i18n_fault_sweep || return 1
    side_by_side counted allocation_faults "$sweep" allocations -- counted file_faults "$sweep" files truncations
}

# The processes of a test of first use, more than the test takes by itself.
first_uses() { # TARGET COUNT
    run_as "$1" env FL_I18N_PROCESSES="$2" ctest --test-dir "$root/build/$1" -R '^first_use$' -V --no-tests=error
}

check_threads() {
    local status=0
    build_target tsan && build_target windows || return 1
    counted first_use_tsan first_uses tsan 500 || status=1
    counted first_use_windows first_uses windows 300 || status=1
    counted thread_mix_tsan run_as tsan "$root/build/tsan/bin/fl_i18n_thread_mix" 300 || status=1
    return "$status"
}

# What a submission did not change must not fail it: the search is the same one each time, from the stored inputs on.
check_fuzz() {
    local targets fuzz_seed=1
    prepare_target fuzz
    build_target fuzz fl_i18n_fuzzers || return 1
    mapfile -t targets < <(fuzz_targets)
    rm -rf "$root/build/fuzz/corpus"
    counted fuzz run_fuzzers "$fuzz_check_seconds" "${targets[@]}"
}

check_valgrind() {
    need_packages valgrind
    build_target linux && counted valgrind bash "$root/tests/checks/valgrind.sh" "$root/build/linux"
}

check_soak() {
    build_target linux fl_i18n_soak && build_target windows fl_i18n_soak || return 1
    side_by_side counted soak_linux "$root/build/linux/bin/fl_i18n_soak" -- \
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
    mkdir -p "$root/build/check"
    : >"$root/build/check/counts"
    for stage in "${stages[@]}"; do
        timed "[check] $stage" "check_$stage" || failed+=("$stage")
    done
    for stage in "${!counts[@]}"; do
        say "$stage: ${counts[$stage]}"
    done
    cat "$root/build/check/counts"
    ((${#failed[@]} == 0)) || die "these checks failed: ${failed[*]}"
}
