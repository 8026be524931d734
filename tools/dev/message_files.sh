# shellcheck shell=bash
# The message files of packages of the distribution, from which the tests make catalogs in thirty languages.

message_packages=(evolution-common gnucash-common)

# Puts the message files into the cache, once, and tells the tests where they are. Without them one test is skipped.
prepare_message_files() {
    local package place=$cache/message-files stage=$cache/message-files.$$ log=$cache/logs/message-files.log
    if [[ ! -d $place ]]; then
        mkdir -p "$stage/packages" "$stage/files" "$cache/logs"
        for package in "${message_packages[@]}"; do
            if ! (cd "$stage/packages" && logged "$log" apt-get download -qq -o APT::Sandbox::User=root "$package" &&
                dpkg-deb --fsys-tarfile "$package"_*.deb |
                    tar -x -C "$stage/files" --wildcards './usr/share/locale/*/LC_MESSAGES/*.mo'); then
                warn "the package $package cannot be had: the test with its message files is left out"
                rm -rf "$stage"
                return
            fi
        done
        mv -T "$stage/files" "$place" 2>/dev/null || [[ -d $place ]]
        rm -rf "$stage"
    fi
    export FL_I18N_MESSAGE_FILES=$place
}
