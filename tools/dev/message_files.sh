# shellcheck shell=bash
# Files of packages of the distribution that the tests read: message files, from which they make catalogs in thirty
# languages; PO files; the schemas of XLIFF. They are put into the cache once. Without them tests are skipped.

message_packages=(evolution-common gnucash-common)
po_packages=(hello sed grep bash)
schema_package=php-symfony-translation

prepare_message_files() {
    cached_files message-files unpack_message_files && export FL_I18N_MESSAGE_FILES=$cache/message-files
    need_packages gettext libxml2-utils || warn "the tests with gettext's tools and xmllint are left out"
    cached_files po-files unpack_po_files && export FL_I18N_PO_FILES=$cache/po-files
    cached_files xliff-schemas unpack_schemas && export FL_I18N_XLIFF_SCHEMAS=$cache/xliff-schemas
    return 0
}

# Makes a folder of the cache by a function, which is called in a folder of its own and fills "files" there.
cached_files() { # NAME FUNCTION
    local place=$cache/$1 stage=$cache/$1.$$
    [[ ! -d $place ]] || return 0
    mkdir -p "$stage/files" "$cache/logs"
    if ! (cd "$stage" && logged "$cache/logs/$1.log" "$2"); then
        warn "the packages for $1 cannot be had: the tests with them are left out"
        rm -rf "$stage"
        return 1
    fi
    mv -T "$stage/files" "$place" 2>/dev/null || [[ -d $place ]]
    rm -rf "$stage"
}

unpack_message_files() {
    local package
    for package in "${message_packages[@]}"; do
        apt-get download -qq -o APT::Sandbox::User=root "$package" &&
            dpkg-deb --fsys-tarfile "$package"_*.deb |
            tar -x -C files --wildcards './usr/share/locale/*/LC_MESSAGES/*.mo' || return 1
    done
}

# Downloads source packages of the machine's own suite into the current folder.
download_sources() { # PACKAGE...
    local list
    list=$(
        # shellcheck source=/dev/null
        pinned_suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
        write_private_sources "$PWD/apt"
    ) || return 1
    mkdir -p lists/partial
    local options=(-o "Dir::Etc::sourcelist=$list" -o Dir::Etc::sourceparts=- -o "Dir::State::Lists=$PWD/lists"
        -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache= -o APT::Sandbox::User=root)
    apt-get update -qq --error-on=any "${options[@]}" &&
        apt-get source --download-only -qq "${options[@]}" "$@"
}

unpack_po_files() {
    local package
    download_sources "${po_packages[@]}" || return 1
    for package in "${po_packages[@]}"; do
        mkdir "files/$package"
        tar -x -f "$package"_*.orig.tar.?z -C "files/$package" --strip-components 1 --wildcards '*/po/*.po' ||
            return 1
    done
}

unpack_schemas() {
    apt-get download -qq -o APT::Sandbox::User=root "$schema_package" &&
        dpkg-deb --fsys-tarfile "$schema_package"_*.deb |
        tar -x -C files --strip-components 9 --wildcards '*/schemas/*.xsd' || return 1
    sed -i 's|schemaLocation="[^"]*/xml.xsd"|schemaLocation="xml.xsd"|' files/xliff-*.xsd
}
