# shellcheck shell=bash
# Planted defects: each patch of tests/planted makes one mistake and names the check that must see it.
#
# A patch begins with lines of its own: "Defect:" says what is wrong with it, "Caught by:" names a command of ./dev.
# The patches are applied to a copy of the last commit, one at a time.

planted_field() { sed -n "s/^$1: //p" "$2"; } # NAME PATCH

# Runs a command of ./dev in the copy; fails when the copy does not compile, for which status 2 is left.
run_in_copy() { # COPY LOG COMMAND...
    local copy=$1 log=$2 status=0
    shift 2
    (cd "$copy" && "$@") >"$log" 2>&1 || status=1
    if ((status)) && grep -qE '^dev: building .* failed|\(not built\)' "$log"; then
        status=2
    fi
    return "$status"
}

# Applies one patch and tells whether its check sees it.
plant() { # COPY PATCH
    local copy=$1 patch=$2 name status=0
    name=$(basename "$patch" .patch)
    local log=$copy/build/planted/$name.log command
    read -ra command <<<"$(planted_field 'Caught by' "$patch")"
    if ! git -C "$copy" apply --check "$patch" 2>"$log"; then
        say "[planted] $name: DOES NOT APPLY: $log"
        return 1
    fi
    git -C "$copy" apply "$patch"
    run_in_copy "$copy" "$log" "${command[@]}" || status=$?
    git -C "$copy" apply -R "$patch"
    case $status in
    0) say "[planted] $name: NOT CAUGHT by ${command[*]}: $log" ;;
    1) say "[planted] $name: caught by ${command[*]}" ;;
    2) say "[planted] $name: DOES NOT COMPILE: $log" ;;
    esac
    ((status == 1))
}

# Makes the copy what the last commit is; files that did not change keep their times, so that little is built anew.
update_copy() { # COPY
    [[ -d $1 ]] || git clone -q --no-checkout "$root" "$1" || return 1
    git -C "$1" fetch -q origin HEAD && git -C "$1" reset -q --hard FETCH_HEAD && mkdir -p "$1/build/planted"
}

command_planted() {
    local patches=() name copy=$root/build/planted/tree caught=0 command
    for name in "$@"; do
        patches+=("$root/tests/planted/${name%.patch}.patch")
        [[ -f ${patches[-1]} ]] || die "no planted defect: $name"
    done
    (($#)) || patches=("$root"/tests/planted/*.patch)
    update_copy "$copy" || die "the copy cannot be made"
    # Each check must be content with the code as it is, or what it says of a defect means nothing.
    while IFS= read -r command; do
        say "[planted] without a defect: $command"
        # shellcheck disable=SC2086 # the words of the command
        run_in_copy "$copy" "$copy/build/planted/none.log" $command ||
            die "fails without a defect: $command: $copy/build/planted/none.log"
    done < <(for name in "${patches[@]}"; do planted_field 'Caught by' "$name"; done | sort -u)
    for name in "${patches[@]}"; do
        plant "$copy" "$name" && ((++caught))
    done
    say "planted defects: $caught of ${#patches[@]} caught"
    ((caught == ${#patches[@]})) || die "not each planted defect is caught"
}
