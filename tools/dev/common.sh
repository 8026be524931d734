# shellcheck shell=bash
# Messages, clocks and the distribution's packages.

say() { printf '%s\n' "$*"; }
warn() { printf 'dev: %s\n' "$*" >&2; }

die() {
    warn "$@"
    exit 1
}

# Runs a command with its output in a log file; a failure shows the log's end and its place.
logged() { # LOG COMMAND...
    local log=$1
    shift
    mkdir -p "$(dirname "$log")"
    if ! "$@" >>"$log" 2>&1; then
        tail -n 30 "$log" >&2
        warn "failed: $*"
        warn "the whole log: $log"
        return 1
    fi
}

# Runs a command and prints how long it took.
timed() { # LABEL COMMAND...
    local label=$1 start=$SECONDS
    shift
    say "$label ..."
    "$@" || return 1
    say "$label: $((SECONDS - start)) s"
}

installed() { [[ $(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null) == installed ]]; }

# Installs those of the distribution's packages that are missing.
need_packages() { # PACKAGE...
    local package missing=()
    for package in "$@"; do
        installed "$package" || missing+=("$package")
    done
    ((${#missing[@]})) || return 0
    if ((EUID != 0)); then
        warn "please install as root: apt-get install ${missing[*]}"
        return 1
    fi
    timed "[deps] installing ${missing[*]}" install_packages "$cache/logs/apt.log" "${missing[@]}"
}

install_packages() { # LOG PACKAGE...
    local log=$1
    shift
    if [[ -z ${apt_updated:-} ]]; then
        logged "$log" apt-get update -qq || return 1
        apt_updated=yes
    fi
    logged "$log" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends -o DPkg::Lock::Timeout=300 "$@"
}
