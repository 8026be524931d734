#!/usr/bin/env bash
# Makes the Debian packages, installs them into a root of their own and uses them there.
# Usage: debian.sh BUILD-DIR WORK-DIR BOOST-PREFIX PKG-CONFIG-PATH
set -euo pipefail
# shellcheck source=tests/packages/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

build=$1 work=$2 boost=$3 pkgconfig_path=$4
((EUID == 0)) || { echo "skipped: only root can install packages" && exit 77; }

make_packages "$build"
rm -rf "$work"
root=$work/root
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates"
touch "$root/var/lib/dpkg/status"
dpkg --root="$root" --force-depends --install "$build"/packages/*.deb
prefix=$root/opt/fl_i18n

# The dependencies can be had from the distribution.
apt-get install --simulate -qq "$build"/packages/*.deb ||
    { apt-get update -qq && apt-get install --simulate -qq "$build"/packages/*.deb; }

# Nothing that is installed is left out of the packages.
cmake --install "$build" --prefix "$work/all" >/dev/null
diff <(cd "$work/all" && find . | sort) <(cd "$prefix" && find . | sort)

# No link points to nothing.
[[ -z $(find "$root" -xtype l) ]] || fail "broken links: $(find "$root" -xtype l)"

# The library runs on its own ICU and Expat where they are in the package, and the tool on that library.
bundled=(boost cli11)
[[ ! -e $prefix/lib/libexpat.so.1 ]] || bundled+=(icu expat)
check_installation "$prefix" "${bundled[@]}"
elsewhere=$(LC_ALL=C ldd "$prefix/bin/fl-i18n" | grep -E 'not found|libfl_i18n|libicu|libexpat' |
    grep -v "=> $prefix/" || true)
[[ -z $elsewhere || ${#bundled[@]} == 2 && $elsewhere != *"not found"* ]] || fail "libraries from elsewhere: $elsewhere"
cd "$sources/consumer"
check_tool env -i PATH="$root/usr/bin:/usr/bin:/bin" LC_ALL=C.UTF-8 fl-i18n

# What is built with the packages finds them without being told where they are.
bash consumer.sh cmake "$work/consumer_cmake" -DCMAKE_FIND_ROOT_PATH="$root" -DCMAKE_PREFIX_PATH="$boost"
PKG_CONFIG_PATH=$root/usr/lib/$(gcc -print-multiarch)/pkgconfig:$pkgconfig_path \
    bash consumer.sh pkg-config "$work/consumer_pkg_config" g++ -I"$boost/include"
rm -rf "$work"
