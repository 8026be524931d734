# shellcheck shell=bash
# Completion of fl-i18n for bash, with or without the package bash-completion.

# Prints the options of a command.
_fl_i18n_options() { # COMMAND
    case $1 in
    '') echo --help --version ;;
    convert) echo --from --to --on-error --output --all --help ;;
    coverage) echo --base --missing --format --help ;;
    doctor) echo --root --help ;;
    export) echo --output --format --base --source-locale --template --help ;;
    import) echo --output --locale --help ;;
    lint) echo --base --format --werror --disable --rules --help ;;
    locale) echo --help ;;
    lookup) echo --locale --root --arg --explain --help ;;
    pseudo) echo --output --rtl --expansion --help ;;
    esac
}

# Prints what the place of an option's value, or of an argument without option, takes: words, or a kind of names.
_fl_i18n_values() { # COMMAND OPTION
    case "$1 $2" in
    'convert --from' | 'convert --to')
        echo UTF-8 UTF-16LE UTF-16BE UTF-32LE US-ASCII ISO-8859-1 ISO-8859-15 windows-1252 windows-1251 KOI8-R \
            Shift_JIS EUC-JP ISO-2022-JP EUC-KR GB18030 Big5
        ;;
    'convert --on-error') echo stop substitute escape={icu,java,c,xml-decimal,xml-hex,unicode,css2} ;;
    'convert escape') echo icu java c xml-decimal xml-hex unicode css2 ;;
    'coverage --format') echo text json ;;
    'export --format') echo po xliff1 xliff2 ;;
    'lint --format') echo text json sarif ;;
    'lint --disable') echo RULES ;;
    'lookup --arg') echo s: i: d: ;;
    *' --root') echo DIRECTORIES ;;
    'coverage --base' | 'lint --base' | *' --locale' | *' --source-locale' | 'locale ') echo LOCALES ;;
    *' --expansion' | 'doctor ' | 'lookup ') ;;
    ' ') echo convert coverage doctor export import lint locale lookup pseudo ;;
    *) echo FILES ;;
    esac
}

# Prints the locales that have catalogs, in the directories that the line names, here, and in the installation.
_fl_i18n_locales() {
    local program word directory
    program=$(readlink -f "$(type -P "${COMP_WORDS[0]}")")
    for word in "${COMP_WORDS[@]:1}" . "${program%/bin/*}"; do
        word=${word/#\~/$HOME}
        [[ ${word%/} != resources && ${word%/} != */resources ]] || word+=/..
        for directory in "$word"/resources/*/*/; do
            directory=${directory%/}
            [[ ! -d $directory ]] || echo "${directory##*/}"
        done
    done
}

_fl_i18n() {
    local word=${COMP_WORDS[COMP_CWORD]} command='' before='' option='' values each
    for each in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        [[ -n $command || $each == -* ]] || command=$each
        # "--option=value" and "escape=KIND" are three words each.
        [[ $each == = ]] || before=$each
    done
    [[ $word != = ]] || word=''
    case $before in
    --all | --explain | --help | --missing | --rtl | --rules | --template | --version | --werror) ;;
    --* | escape) option=$before ;;
    esac

    COMPREPLY=()
    if [[ -z $option && $word == -* ]]; then
        values=$(_fl_i18n_options "$command")
    else
        values=$(_fl_i18n_values "$command" "$option")
    fi
    case $values in
    FILES) mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
    DIRECTORIES) mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
    LOCALES) mapfile -t COMPREPLY < <(compgen -W "$(_fl_i18n_locales | sort -u)" -- "$word") ;;
    RULES)
        mapfile -t COMPREPLY < <(
            compgen -W "$("${COMP_WORDS[0]}" lint --rules 2>/dev/null | sed 's/ .*//')" -- "$word"
        )
        ;;
    *) mapfile -t COMPREPLY < <(compgen -W "$values" -- "$word") ;;
    esac
    # A test calls this where there is nothing to set.
    case $values in
    FILES | DIRECTORIES) compopt -o filenames 2>/dev/null ;;
    *:) compopt -o nospace 2>/dev/null ;;
    esac
    return 0
}

complete -F _fl_i18n fl-i18n fl-i18n.exe
