# shellcheck shell=bash
# How each dependency is built. A recipe is called as build_NAME TARGET STAGE PLACE: it leaves in STAGE what will be
# renamed to PLACE. Its text is part of the cache's key. A recipe runs where "set -e" does not reach, hence the &&.

# Unpacks the upstream sources of a dependency, once.
unpack() { # DEPENDENCY; prints the folder
    local folder=$cache/building/$1-source
    if [[ ! -d $folder ]]; then
        mkdir -p "$folder.part" &&
            tar -xf "$(echo "$cache/sources/${source_package[$1]}"_*.orig.tar.?z)" -C "$folder.part" --strip-components=1 &&
            mv "$folder.part" "$folder" || return 1
    fi
    echo "$folder"
}

# Configures, builds and installs a CMake project.
cmake_build() { # NAME TARGET STAGE SOURCE OPTION...
    local build=$cache/building/$1-$2 stage=$3 source=$4 toolchain=()
    [[ $2 == windows ]] && toolchain=(-DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64.cmake")
    cmake -S "$source" -B "$build" -G Ninja "${toolchain[@]}" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_INSTALL_PREFIX="$stage" -DCMAKE_INSTALL_LIBDIR=lib -DCMAKE_POSITION_INDEPENDENT_CODE=ON "${@:5}" &&
        cmake --build "$build" -j 1 &&
        cmake --install "$build" &&
        rm -rf "$build"
}

# Shared libraries. The native build folder stays beside the Windows one, which runs its tools.
build_icu() {
    local source native build=$cache/building/icu-$1 options=()
    source=$(unpack icu)/source || return 1
    native=$cache/building/icu-linux
    if [[ $1 == windows ]]; then
        # The tools may be gone when the native package was finished in an earlier run.
        [[ -x $native/bin/icupkg ]] || build_icu linux "$cache/building/icu-again" "$3" || return 1
        options=(--host=x86_64-w64-mingw32 --with-cross-build="$native" --disable-tools
            CC=x86_64-w64-mingw32-gcc-posix CXX=x86_64-w64-mingw32-g++-posix)
    else
        # The libraries find each other beside themselves, wherever they are put.
        options=(LDFLAGS="-Wl,-rpath,'\$\$ORIGIN'")
    fi
    mkdir -p "$build" &&
        cd "$build" &&
        "$source/configure" --prefix="$3" --enable-shared --disable-static --disable-samples --disable-tests \
            --disable-extras --disable-layoutex --disable-icuio --with-data-packaging=library \
            CFLAGS=-O2 CXXFLAGS="-O2 -std=c++17" "${options[@]}" &&
        make -j "$jobs" &&
        make install DESTDIR="$2.root" &&
        mv -T "$2.root$3" "$2" &&
        rm -rf "$2.root" "$2"/{bin/icu-config,lib/icu,sbin,share/man}
}

# The few libraries that this one uses, with what they need, static.
build_boost() {
    local libraries="filesystem;smart_ptr;exception;throw_exception;unordered;numeric/conversion;date_time;uuid"
    cmake_build boost "$1" "$2" "$(unpack boost)" -DBUILD_SHARED_LIBS=OFF -DBUILD_TESTING=OFF \
        -DBOOST_INSTALL_LAYOUT=system -DBOOST_INCLUDE_LIBRARIES="$libraries;functional;container_hash;any;core"
}

build_expat() {
    cmake_build expat "$1" "$2" "$(unpack expat)/expat" -DEXPAT_SHARED_LIBS=ON -DEXPAT_BUILD_TOOLS=OFF \
        -DEXPAT_BUILD_EXAMPLES=OFF -DEXPAT_BUILD_TESTS=OFF -DEXPAT_BUILD_DOCS=OFF
}

build_gtest() {
    cmake_build gtest "$1" "$2" /usr/src/googletest -DBUILD_GMOCK=OFF
}

# Headers only, in a folder of their own: the cross compiler must not see the rest of /usr/include.
build_cli11() {
    mkdir -p "$2/include" && cp -r /usr/include/CLI "$2/include/"
}
