# shellcheck shell=bash
# Fuzzing: the targets of tests/fuzz, driven by libFuzzer under the address and undefined-behaviour sanitizers.

# Runs one target for some time over what it found before and the stored inputs. With a fuzz_seed the search begins
# the same each time.
fuzz_one() { # TARGET SECONDS
    local target=$1 folder=$root/build/fuzz status=0
    local log=$folder/logs/$target.log stored=() options=(${fuzz_seed:+"-seed=$fuzz_seed"})
    mkdir -p "$folder"/{logs,"corpus/$target","findings/$target"}
    [[ ! -f $root/tests/fuzz/$target.dict ]] || options+=("-dict=$root/tests/fuzz/$target.dict")
    for kind in corpus regressions; do
        [[ ! -d $root/tests/fuzz/$kind/$target ]] || stored+=("$root/tests/fuzz/$kind/$target")
    done
    "$folder/bin/fl_i18n_fuzz_$target" -max_total_time="$2" -timeout=20 -rss_limit_mb=3072 -max_len=4096 \
        -print_final_stats=1 -verbosity=1 -artifact_prefix="$folder/findings/$target/" "${options[@]}" \
        "$folder/corpus/$target" "${stored[@]}" >"$log" 2>&1 || status=1
    local count coverage
    count=$(awk '/^stat::number_of_executed_units/ { print $2 }' "$log")
    coverage=$(awk '/ cov: / { for (i = 1; i < NF; ++i) if ($i == "cov:") seen = $(i + 1) } END { print seen + 0 }' "$log")
    printf '%s\n' "${count:-0}" >"$folder/logs/$target.count"
    say "[fuzz] $target: ${count:-0} executions, $coverage edges reached$( ((status)) && echo ", FINDING: $log")"
    return "$status"
}

fuzz_targets() {
    local program
    for program in "$root"/build/fuzz/bin/fl_i18n_fuzz_*; do
        echo "${program##*/fl_i18n_fuzz_}"
    done
}

# Runs targets, as many at a time as there are processors.
run_fuzzers() { # SECONDS TARGET...
    local seconds=$1 target running=0 findings=0 executions=0
    shift
    for target in "$@"; do
        if ((running == jobs)); then
            wait -n || ((++findings))
            ((running -= 1)) || true
        fi
        fuzz_one "$target" "$seconds" &
        ((++running))
    done
    for ((; running; --running)); do
        wait -n || ((++findings))
    done
    for target in "$@"; do
        ((executions += $(cat "$root/build/fuzz/logs/$target.count"))) || true
    done
    say "fuzz: $executions executions over $# targets, $findings findings"
    ((findings == 0))
}

# Puts the fewest of the inputs found that reach what all of them reach beside the stored ones.
store_inputs() { # TARGET...
    local target stored
    for target in "$@"; do
        stored=$root/tests/fuzz/corpus/$target
        mkdir -p "$stored"
        logged "$root/build/fuzz/logs/$target-merge.log" "$root/build/fuzz/bin/fl_i18n_fuzz_$target" \
            -set_cover_merge=1 "$stored" "$root/build/fuzz/corpus/$target" || return 1
        say "[fuzz] $target: $(find "$stored" -type f | wc -l) stored inputs"
    done
}

command_fuzz() {
    local minutes=10 seconds='' store='' targets=()
    while (($#)); do
        case $1 in
        --minutes) [[ ${2:-} == [1-9]*([0-9]) ]] || die "--minutes takes a number"; minutes=$2; shift ;;
        --seconds) [[ ${2:-} == [1-9]*([0-9]) ]] || die "--seconds takes a number"; seconds=$2; shift ;;
        --store) store=yes ;;
        -*) die "usage: ./dev fuzz [--minutes N | --seconds N] [--store] [TARGET]..." ;;
        *) targets+=("$1") ;;
        esac
        shift
    done
    prepare_target fuzz
    build_target fuzz fl_i18n_fuzzers || die "building fuzz failed"
    ((${#targets[@]})) || mapfile -t targets < <(fuzz_targets)
    local target
    for target in "${targets[@]}"; do
        [[ -x $root/build/fuzz/bin/fl_i18n_fuzz_$target ]] || die "unknown fuzz target: $target"
    done
    : "${seconds:=$((minutes * 60 * (jobs < ${#targets[@]} ? jobs : ${#targets[@]}) / ${#targets[@]}))}"
    say "[fuzz] ${#targets[@]} targets, $seconds s each; findings go to build/fuzz/findings"
    run_fuzzers "$seconds" "${targets[@]}" || die "there are findings; store each as a file of tests/fuzz/regressions/TARGET"
    [[ -z $store ]] || store_inputs "${targets[@]}"
}
