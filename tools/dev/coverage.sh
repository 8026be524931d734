# shellcheck shell=bash
# Which lines and branches of our own code the tests and the stored inputs of the fuzz targets reach.

# The least shares wanted, in percent.
wanted_lines=95
wanted_branches=90

# Prints the report of llvm-cov for our own code, a file a line.
measure_coverage() { # PROFILES
    local file objects=("$root/build/coverage/lib/libfl_i18n.so")
    for file in "$root"/build/coverage/bin/*; do
        [[ ! -f $file || ! -x $file ]] || objects+=(-object "$file")
    done
    llvm-profdata merge -sparse "$1"/*.profraw -o "$1/all.profdata" || return 1
    llvm-cov report "${objects[@]}" -instr-profile "$1/all.profdata" \
        -ignore-filename-regex='/(tests|examples|bench|deps)/|^/usr/' 2>"$1/warnings.txt"
}

# Sums the report by folder and tells whether the shares are reached.
sum_coverage() { # REPORT
    awk -v lines="$wanted_lines" -v branches="$wanted_branches" -v root="$root/" '
        function share(all, missed) { return all ? 100 * (all - missed) / all : 100 }
        function row(name) {
            printf "%-12s %8d %8.2f%% %8d %8.2f%%\n", name, l[name], share(l[name], lm[name]), b[name],
                share(b[name], bm[name])
        }
        function add(name) { l[name] += $8; lm[name] += $9; b[name] += $11; bm[name] += $12 }
        NF == 13 && $1 ~ /\.[ch]pp$/ {
            file = $1; sub(root, "", file); sub(/^.*\.\.\//, "", file); folder = file; sub(/\/.*/, "", folder)
            if (!(folder in l)) folders[++count] = folder
            add(folder); add("all"); if (folder != "tools") add("library")
        }
        END {
            printf "%-12s %8s %9s %8s %9s\n", "folder", "lines", "reached", "branches", "reached"
            for (i = 1; i <= count; ++i) row(folders[i])
            row("library"); row("all")
            good = share(l["library"], lm["library"]) >= lines && share(b["library"], bm["library"]) >= branches &&
                share(l["all"], lm["all"]) >= lines && share(b["all"], bm["all"]) >= branches
            exit !(good && l["library"])
        }' "$1"
}

command_coverage() {
    (($# == 0)) || die "usage: ./dev coverage"
    local profiles=$root/build/coverage/profiles target
    local -A counts=()
    prepare_target coverage
    need_packages "${test_packages[@]}"
    prepare_message_files
    build_target coverage || die "building coverage failed"
    rm -rf "$profiles"
    export LLVM_PROFILE_FILE=$profiles/%4m.profraw
    timed "[test] coverage" run_tests coverage || die "the tests failed: ${counts[coverage]}"
    # What fuzzing has found on this machine beside the stored inputs.
    for target in "$root"/build/fuzz/corpus/*; do
        [[ ! -d $target ]] || "$root/build/coverage/bin/fl_i18n_fuzz_${target##*/}" "$target" &>/dev/null ||
            warn "an input of $target fails"
    done
    measure_coverage "$profiles" >"$profiles/report.txt" || die "llvm-cov failed"
    say "coverage: ${counts[coverage]}; by file: build/coverage/profiles/report.txt"
    sum_coverage "$profiles/report.txt" || die "less than $wanted_lines% of the lines or $wanted_branches% of the branches are reached"
}
