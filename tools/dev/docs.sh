# shellcheck shell=bash
# The documentation: the reference of the public headers and the guides, as HTML.

command_docs() {
    (($# == 0)) || die "usage: ./dev docs"
    need_packages doxygen
    local folder=$root/build/docs
    rm -rf "$folder"
    mkdir -p "$folder"
    FL_I18N_VERSION=$(sed -n 's/^project(fl_i18n VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt) \
        doxygen docs/Doxyfile || die "the documentation has faults"
    say "[docs] $folder/index.html"
}
