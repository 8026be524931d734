# shellcheck shell=bash
# The dependencies: which packages, where they are built, and how a checkout finds them.
#
# Each package is built once per target into a folder of the cache, named by its version and a hash of its recipe.
# A folder appears there by a rename when it is complete, so whatever is there can be used. The links in build/deps
# are what CMake searches.

base_packages=(g++ cmake ninja-build make xz-utils libgtest-dev libcli11-dev)
windows_packages=(g++-mingw-w64-x86-64-posix wine64)
test_packages=(dpkg-dev groff-base libxml2-utils pkgconf unzip)
clang_packages=(clang libclang-rt-14-dev llvm)
system_packages=(libicu-dev libboost1.81-dev libboost-filesystem1.81-dev libexpat1-dev)

# The suite that offers the pinned sources, and the versions accepted from it, best first.
pinned_suite=trixie
declare -A source_package=([icu]=icu [boost]=boost1.88 [expat]=expat)
declare -A pinned_versions=([icu]="76.1" [boost]="1.88.0" [expat]="2.8 2.7")

linux_dependencies=(icu boost expat)
windows_dependencies=(icu boost expat gtest cli11)

dependencies_of() { # TARGET
    local -n names=$1_dependencies
    printf '%s\n' "${names[@]}"
}

compiler_of() { [[ $1 == linux ]] && echo g++ || echo x86_64-w64-mingw32-g++-posix; } # TARGET

version_of() { # DEPENDENCY
    case $1 in
    gtest) dpkg-query -W -f '${Version}' libgtest-dev ;;
    cli11) dpkg-query -W -f '${Version}' libcli11-dev ;;
    benchmark) dpkg-query -W -f '${Version}' libbenchmark-dev ;;
    *) echo "${pinned_versions[$1]%% *}" ;;
    esac
}

# The place of one built package in the cache.
place_of() { # DEPENDENCY TARGET
    local key
    key=$(
        {
            declare -f "build_$1" cmake_build
            version_of "$1"
            "$(compiler_of "$2")" -dumpfullversion
        } | sha256sum
    )
    echo "$cache/deps/$1-$(version_of "$1")-$2-${key:0:12}"
}

# Prints "dependency target" for each package that is not yet in the cache.
missing_dependencies() {
    local target dependency
    for target in linux windows; do
        for dependency in $(dependencies_of "$target"); do
            [[ -d $(place_of "$dependency" "$target") ]] || echo "$dependency $target"
        done
    done
}

# Makes the dependencies usable from this checkout. Afterwards deps_mode is "pinned" or "system".
prepare_dependencies() {
    need_packages "${base_packages[@]}"
    if [[ ${FL_I18N_DEPS:-} == system ]]; then
        use_system_dependencies
    elif need_packages "${windows_packages[@]}" && have_sources_or_cache; then
        fill_cache
        link_dependencies
        deps_mode=pinned
    else
        warn "the pinned ICU, Boost and Expat (suite $pinned_suite) and the tools to build them for Windows cannot be" \
            "had here: building for linux only, against the distribution's own versions"
        use_system_dependencies
    fi
}

# Takes the cache's lock when packages are missing there, and then fetches their sources.
have_sources_or_cache() {
    [[ -n $(missing_dependencies) ]] || return 0
    mkdir -p "$cache/deps"
    exec 9>"$cache/lock"
    flock -n 9 || { say "[deps] waiting for another ./dev that fills the cache" && flock 9; }
    [[ -z $(missing_dependencies) ]] || fetch_sources || { exec 9>&- && return 1; }
}

# Builds what is missing and gives the lock back.
fill_cache() {
    local missing
    missing=$(missing_dependencies)
    [[ -z $missing ]] || timed "[deps] all" build_missing "$missing" || die "the dependencies could not be built"
    exec 9>&-
}

use_system_dependencies() {
    need_packages "${system_packages[@]}"
    rm -rf "$root/build/deps"
    deps_mode=system
}

link_dependencies() {
    local target dependency
    for target in linux windows; do
        mkdir -p "$root/build/deps/$target"
        for dependency in $(dependencies_of "$target"); do
            ln -sfn "$(place_of "$dependency" "$target")" "$root/build/deps/$target/$dependency"
        done
    done
}

# Writes the machine's own package sources, turned into those of the pinned suite's source packages.
write_private_sources() { # FILE-WITHOUT-ENDING; prints the file's name
    local codename file
    # shellcheck source=/dev/null
    codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
    for file in /etc/apt/sources.list.d/*.sources; do
        [[ -f $file ]] || continue
        awk -v codename="$codename" -v suite="$pinned_suite" 'BEGIN { RS = ""; FS = "\n" }
            $0 ~ "(^|\n)Suites:[^\n]*[ \t]" codename "([ \t\n]|$)" && /(^|\n)Components:[^\n]*[ \t]main/ {
                for (i = 1; i <= NF; ++i) {
                    if ($i ~ /^Types:/) $i = "Types: deb-src"
                    if ($i ~ /^Suites:/) $i = "Suites: " suite
                    if ($i !~ /^#/) print $i
                }
                exit
            }' "$file" >"$1.sources"
        [[ -s $1.sources ]] && echo "$1.sources" && return
    done
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [[ -f $file ]] || continue
        sed -n -E "s/^deb(-src)?([ \t]+(\[[^]]*\][ \t]+)?[^ \t]+[ \t]+)$codename([ \t]+.*\bmain\b.*)/deb-src\2$pinned_suite\4/p" \
            "$file" | head -n 1 >"$1.list"
        [[ -s $1.list ]] && echo "$1.list" && return
    done
    return 1
}

# Downloads the pinned source packages into the cache; fails when the mirror does not have them.
fetch_sources() {
    local folder=$cache/sources log=$cache/logs/sources.log name list start=$SECONDS
    mkdir -p "$folder" "$cache/apt/lists/partial" "$cache/logs"
    : >"$log"
    say "[deps] fetching sources ..."
    if ! list=$(write_private_sources "$cache/apt/pinned"); then
        warn "found no Debian mirror in /etc/apt"
        return 1
    fi
    local options=(-o "Dir::Etc::sourcelist=$list" -o Dir::Etc::sourceparts=- -o "Dir::State::Lists=$cache/apt/lists"
        -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache= -o APT::Sandbox::User=root)
    logged "$log" apt-get update -qq --error-on=any "${options[@]}" || return 1
    for name in icu boost expat; do
        local version
        if ! version=$(offered_version "$name" "${options[@]}"); then
            warn "the suite $pinned_suite does not offer $name ${pinned_versions[$name]}"
            return 1
        fi
        (cd "$folder" && logged "$log" apt-get source --download-only -qq "${options[@]}" \
            "${source_package[$name]}=$version") || return 1
    done
    say "[deps] fetching sources: $((SECONDS - start)) s"
}

offered_version() { # DEPENDENCY APT-OPTION...
    local name=$1 offered pin found
    shift
    offered=$(apt-cache showsrc --only-source "${source_package[$name]}" "$@" 2>/dev/null | sed -n 's/^Version: //p')
    for pin in ${pinned_versions[$name]}; do
        found=$(grep -E "^${pin//./\\.}[.-]" <<<"$offered" | sort -V | tail -n 1) || continue
        echo "$found" && return
    done
    return 1
}

# Builds the missing packages in two lanes: ICU, whose Windows build needs the native one's tools, and all others.
build_missing() { # LIST
    rm -rf "$cache/building"
    mkdir -p "$cache/building"
    rm -f "$cache"/logs/*-linux.log "$cache"/logs/*-windows.log
    build_lane "$(grep '^icu ' <<<"$1")" &
    local icu_lane=$! failed=
    build_lane "$(grep -v '^icu ' <<<"$1")" || failed=yes
    wait "$icu_lane" || failed=yes
    [[ -z $failed ]] || return 1
    rm -rf "$cache/building" "$cache/sources" "$cache/apt"
}

build_lane() { # LIST
    local dependency target
    while read -r dependency target; do
        [[ -n $dependency ]] || continue
        timed "[deps] $dependency $(version_of "$dependency") $target: building" \
            build_one "$dependency" "$target" || return 1
    done <<<"$1"
}

build_one() { # DEPENDENCY TARGET
    local place stage log=$cache/logs/$1-$2.log
    place=$(place_of "$1" "$2")
    stage=$cache/building/$1-$2.stage
    logged "$log" "build_$1" "$2" "$stage" "$place" || return 1
    mv -T "$stage" "$place"
}

command_deps() {
    prepare_dependencies
    say "[deps] $deps_mode: ready"
}
