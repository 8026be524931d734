# shellcheck shell=bash
# The main job: messages of the catalog fl:i18n in every language shipped, with the same text on each platform.

languages=(en_US_POSIX de fr es ja ko pt_BR ru zh_CN zh_TW)

# An identifier and its arguments a line.
lookups="fl:i18n:QzLcInvLcName
fl:i18n:LcRscOpenFileFailure --arg s:catalog_map.xml
fl:i18n:LcRscInvalidXmlDoc --arg i:4 --arg i:12 --arg i:7"

look_up() { # TARGET IDENTIFIER OPTION...
    local target=$1
    shift
    if [[ $target == windows ]]; then
        "$root/tools/dev/wine.sh" "$root/build/windows/bin/fl-i18n.exe" lookup "$@" | tr -d '\r'
    else
        "$root/build/linux/bin/fl-i18n" lookup "$@"
    fi
}

# Prints "language | identifier | text" for every lookup; fails when one of them does.
message_table() { # TARGET
    local language identifier options text failed=
    for language in "${languages[@]}"; do
        while read -r identifier options; do
            # shellcheck disable=SC2086 # the options are words
            if ! text=$(look_up "$1" "$identifier" --locale "$language" $options </dev/null) || [[ -z $text ]]; then
                failed=yes
                text="(lookup failed) $text"
            fi
            printf '%-11s | %-28s | %s\n' "$language" "$identifier" "$text"
        done <<<"$lookups"
    done
    [[ -z $failed ]]
}

command_run() {
    (($# == 0)) || die "usage: ./dev run"
    local target targets first failed=
    prepare_targets
    for target in "${targets[@]}"; do
        build_target "$target" fl-i18n || die "building $target failed"
    done
    first=$root/build/${targets[0]}/messages.txt
    for target in "${targets[@]}"; do
        printf '\n[run] %s\n' "$target"
        message_table "$target" >"$root/build/$target/messages.txt" || failed=yes
        cat "$root/build/$target/messages.txt"
        if ! diff "$first" "$root/build/$target/messages.txt"; then
            warn "$target and ${targets[0]} disagree"
            failed=yes
        fi
    done
    [[ -z $failed ]] || die "the main job failed"
    printf '\n[run] %d target(s), %d messages each: all found, all the same\n' "${#targets[@]}" "$(wc -l <"$first")"
}
