# shellcheck shell=bash
# Building, testing, installing: the targets are the presets of CMakePresets.json.

declare -A platform_of=([linux]=linux [windows]=windows [asan]=linux [tsan]=linux [fuzz]=linux [coverage]=linux)

is_target() { [[ -n ${1:-} && -n ${platform_of[$1]:-} ]]; }

# Makes the dependencies of a target usable; fails when there is no such target.
prepare_target() { # TARGET
    is_target "$1" || die "unknown target: $1; there are linux, windows, asan, tsan, fuzz and coverage"
    prepare_dependencies
    case $1 in fuzz | coverage) need_packages "${clang_packages[@]}" ;; esac
    [[ ${platform_of[$1]} == linux || $deps_mode == pinned ]] ||
        die "windows needs the pinned dependencies, which cannot be had here"
}

# Prepares the targets named, or those built when none is: linux and, where it can be built, windows.
prepare_targets() { # [TARGET]; leaves them in targets
    if (($#)); then
        prepare_target "$1"
        targets=("$1")
        return
    fi
    prepare_dependencies
    targets=(linux)
    if [[ $deps_mode == pinned ]]; then
        targets+=(windows)
    else
        warn "leaving out windows: its dependencies are not here"
    fi
}

# Configures one target when it was not, or was for other dependencies.
configure_target() { # TARGET
    local target=$1 folder=$root/build/$1 used
    used=$(dependencies_in_use "${platform_of[$target]}")
    if [[ ! -f $folder/build.ninja || $(cat "$folder/dependencies.txt" 2>/dev/null) != "$used" ]]; then
        rm -rf "$folder"
        mkdir -p "$folder"
        logged "$folder/configure.log" cmake --preset "$target" -S "$root" || return 1
        printf '%s\n' "$used" >"$folder/dependencies.txt"
    fi
}

# Builds one target.
build_target() { # TARGET [CMAKE-TARGET]...
    local target=$1 folder=$root/build/$1
    shift
    configure_target "$target" || return 1
    timed "[build] $target" cmake --build "$folder" -j "$jobs" ${1:+--target "$@"}
}

dependencies_in_use() { # PLATFORM
    if [[ $deps_mode == system ]]; then
        echo system
    else
        local dependency
        for dependency in $(dependencies_of "$1"); do
            place_of "$dependency" "$1"
        done
    fi
}

command_build() {
    (($# <= 1)) || die "usage: ./dev build [TARGET]"
    local target targets
    prepare_targets "$@"
    for target in "${targets[@]}"; do
        build_target "$target" || die "building $target failed"
    done
}

# Runs a command with what programs of a target need around them.
run_as() { # TARGET COMMAND...
    local target=$1 run=()
    shift
    # The thread sanitizer of this compiler cannot cope with addresses as random as newer kernels make them.
    if [[ $target == tsan ]] && setarch -R true 2>/dev/null; then
        run=(setarch -R)
    fi
    ASAN_OPTIONS=${ASAN_OPTIONS:-detect_stack_use_after_return=1:strict_string_checks=1} \
    UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1} \
    TSAN_OPTIONS=${TSAN_OPTIONS:-halt_on_error=1:second_deadlock_stack=1} \
        "${run[@]}" "$@"
}

# Runs a target's tests; its counts are left in counts[TARGET].
run_tests() { # TARGET CTEST-OPTION...
    local target=$1 folder=$root/build/$1 report=$root/build/$1/tests.xml status=0
    shift
    rm -f "$report"
    run_as "$target" ctest --test-dir "$folder" --output-on-failure --no-tests=error -j 2 \
        --output-junit "$report" --test-output-size-passed 100000000 --test-output-size-failed 100000000 "$@" ||
        status=1
    counts[$target]=$(count_tests "$report")
    [[ ${counts[$target]} == [1-9]*" passed, 0 failed"* ]] || status=1
    return "$status"
}

# Prints "N passed, N failed[, N skipped]". A program of GoogleTest counts by its cases, as it prints them at its end;
# any other test is one. A program that breaks off before its end, or fails outside a case, is one failure more.
count_tests() { # JUNIT-FILE
    [[ -f $1 ]] || { echo "0 passed, 0 failed" && return; }
    LC_ALL=C awk '
        function number_after(label) {
            return match($0, label " [0-9]+ test") ? substr($0, RSTART + 13, RLENGTH - 18) + 0 : 0
        }
        /<testcase / {
            status = $0; sub(/.* status="/, "", status); sub(/".*/, "", status)
            cases = ok = good = bad = ignored = ended = 0
        }
        /\[==========\] Running / { cases = 1 }
        /\[       OK \]/ { ++ok }
        /\[==========\] .* ran\./ { ended = 1 }
        ended {
            good += number_after("\\[  PASSED  \\]")
            bad += number_after("\\[  FAILED  \\]")
            ignored += number_after("\\[  SKIPPED \\]")
        }
        /<\/testcase>/ {
            if (!cases) { good = status == "run"; bad = status == "fail"; ignored = !good && !bad }
            else if (!ended) { good = ok; bad = 1 }
            else if (status == "fail" && !bad) bad = 1
            passed += good; failed += bad; skipped += ignored
        }
        END { printf "%d passed, %d failed%s\n", passed, failed, skipped ? ", " skipped " skipped" : "" }' "$1"
}

# Builds and tests each target in turn, also after a failure, and prints the counts at the end.
test_targets() { # COUNT TARGET... CTEST-OPTION...
    local targets=("${@:2:$1}") options=("${@:$1 + 2}") target failed=
    local -A counts=()
    for target in "${targets[@]}"; do
        counts[$target]="0 passed, 1 failed (not built)"
        if ! build_target "$target"; then
            failed=yes
        else
            timed "[test] $target" run_tests "$target" "${options[@]}" || failed=yes
        fi
    done
    for target in "${targets[@]}"; do
        say "$target: ${counts[$target]}"
    done
    [[ -z $failed ]]
}

command_test() {
    local targets named=()
    if [[ -n ${1:-} && $1 != -* ]]; then
        named=("$1")
        shift
    fi
    prepare_targets "${named[@]}"
    need_packages "${test_packages[@]}"
    prepare_message_files
    test_targets "${#targets[@]}" "${targets[@]}" "$@" || die "the tests failed"
}

command_install() {
    (($# == 2)) || die "usage: ./dev install TARGET PREFIX"
    prepare_target "$1"
    build_target "$1" || die "building $1 failed"
    cmake --install "$root/build/$1" --prefix "$(cd "$caller" && realpath -m "$2")"
}

command_wine() {
    (($#)) || die "usage: ./dev wine PROGRAM [ARGUMENT]..."
    need_packages wine64
    cd "$caller"
    exec "$root/tools/dev/wine.sh" "$@"
}

command_format() {
    [[ $# == 0 || $* == --check ]] || die "usage: ./dev format [--check]"
    need_packages clang-format
    local files unformatted
    mapfile -t files < <(git ls-files '*.cpp' '*.hpp' '*.h')
    ((${#files[@]})) || die "no C++ files are tracked here"
    if [[ $# == 0 ]]; then
        clang-format -i "${files[@]}"
        return
    fi
    unformatted=$(for file in "${files[@]}"; do clang-format "$file" | cmp -s - "$file" || echo "$file"; done)
    [[ -z $unformatted ]] || die "these files need ./dev format:"$'\n'"$unformatted"
    say "[format] ${#files[@]} files are formatted"
}
