# shellcheck shell=bash
# Packages of the built targets.

command_package() {
    (($# <= 1)) || die "usage: ./dev package [TARGET]"
    local target targets place=$root/build/packages
    prepare_targets "$@"
    need_packages "${test_packages[@]}"
    mkdir -p "$place"
    for target in "${targets[@]}"; do
        build_target "$target" || die "building $target failed"
        rm -rf "$root/build/$target/packages"
        logged "$root/build/$target/package.log" cpack --config "$root/build/$target/CPackConfig.cmake" ||
            die "packaging $target failed"
        cp "$root/build/$target"/packages/*.* "$place"
    done
    ls -sh "$place"
}
