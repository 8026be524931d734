# shellcheck shell=bash
# The benchmarks: this library measured beside others, case by case. The tables, and all figures beside them, are
# left in build/bench.

bench_packages=(libbenchmark-dev gettext icu-devtools)
# Whom we are compared with natively.
peer_packages=(libboost-locale1.81-dev)

# What is measured for Windows needs the library of the benchmarks for it, which nothing else does: it is built on
# the first use, from the source package that the machine's own one comes from.
prepare_benchmark_library() {
    local place
    place=$(place_of benchmark windows)
    if [[ ! -d $place ]]; then
        timed "[bench] library for windows: building" build_benchmark_library "$place" || return 1
    fi
    ln -sfn "$place" "$root/build/deps/windows/benchmark"
}

build_benchmark_library() { # PLACE
    local stage=$cache/benchmark.$$ status=0
    mkdir -p "$stage" "$cache/logs"
    (cd "$stage" && logged "$cache/logs/benchmark-windows.log" unpack_and_build_benchmark "$stage") || status=1
    # Another ./dev may have been faster.
    ((status)) || mv -T "$stage/place" "$1" 2>/dev/null || [[ -d $1 ]] || status=1
    rm -rf "$stage"
    return "$status"
}

unpack_and_build_benchmark() { # STAGE
    mkdir "$1/source" &&
        download_sources benchmark &&
        tar -x -f benchmark_*.orig.tar.?z -C "$1/source" --strip-components 1 &&
        build_benchmark windows "$1/place" "$1/source"
}

build_benchmark() { # TARGET STAGE SOURCE
    cmake_build "benchmark.$$" "$1" "$2" "$3" -DBENCHMARK_ENABLE_TESTING=OFF -DBENCHMARK_ENABLE_INSTALL=ON \
        -DBENCHMARK_INSTALL_DOCS=OFF -DBENCHMARK_ENABLE_WERROR=OFF
}

# Runs a program of the benchmarks.
run_benchmark() { # TARGET PROGRAM OPTION...
    local target=$1 program=$2
    shift 2
    if [[ $target == windows ]]; then
        "$root/tools/dev/wine.sh" "$root/build/windows/bin/$program.exe" "$@" </dev/null | tr -d '\r'
    else
        "$root/build/$target/bin/$program" "$@"
    fi
}

build_benchmarks() { # TARGET PROGRAM...
    if [[ $1 == windows ]]; then
        prepare_benchmark_library || return 1
    fi
    configure_target "$1" &&
        logged "$root/build/$1/configure.log" cmake -D FL_I18N_BUILD_BENCHMARKS=ON "$root/build/$1" &&
        build_target "$@"
}

# Measures what both programs know, and makes one table of it.
bench_target() { # TARGET OPTION...
    local target=$1 place=$root/build/bench program
    shift
    build_benchmarks "$target" fl_i18n_bench fl_i18n_internal_bench || die "building the benchmarks for $target failed"
    mkdir -p "$place"
    : >"$place/$target.tsv"
    for program in fl_i18n_bench fl_i18n_internal_bench; do
        run_benchmark "$target" "$program" --raw "$place/part.tsv" "$@" || return 1
        cat "$place/part.tsv" >>"$place/$target.tsv"
    done
    rm "$place/part.tsv"
    run_benchmark "$target" fl_i18n_bench --read "$place/$target.tsv" "$@" >"$place/$target.txt" || return 1
    cat "$place/$target.txt"
    say "[bench] $place/$target.txt; all figures in $target.tsv beside it"
}

# Measures how costs grow, and draws it.
bench_growth() {
    local place=$root/build/bench/growth
    need_packages gnuplot-nox fonts-dejavu-core
    mkdir -p "$place"
    build_benchmarks linux fl_i18n_growth || die "building failed"
    timed "[bench] growth" "$root/build/linux/bin/fl_i18n_growth" "$place" || die "the benchmarks failed"
    gnuplot -e "directory='$place'; picture='$root/docs/growth.png'" bench/growth.gp || die "drawing failed"
    say "[bench] docs/growth.png; all figures in $place"
}

command_bench() {
    local targets target named=()
    if [[ ${1:-} == --growth ]]; then
        (($# == 1)) || die "usage: ./dev bench --growth"
        prepare_target linux
        need_packages "${bench_packages[@]}" "${peer_packages[@]}"
        bench_growth
        return
    fi
    if [[ -n ${1:-} && $1 != -* ]]; then
        [[ $1 == linux || $1 == windows ]] || die "only linux and windows are measured"
        named=("$1")
        shift
    fi
    prepare_targets "${named[@]}"
    need_packages "${bench_packages[@]}" "${peer_packages[@]}"
    for target in "${targets[@]}"; do
        timed "[bench] $target" bench_target "$target" "$@" || die "the benchmarks failed"
    done
}
