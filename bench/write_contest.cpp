#include "bench/contest.hpp"

#include <fstream>
#include <iostream>

// Writes the messages of the contests as sources for the tools of others: contest.po for msgfmt, LANGUAGE.txt
// for genrb.

namespace {

using namespace fl::bench;

void write_po(std::ostream & file) {
    file << "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n";
    for (std::uint32_t i = 0; i < message_count; ++i) {
        file << "\nmsgid \"" << key_of(i) << "\"\nmsgstr \"" << text_of(i) << "\"\n";
    }
}

void write_bundle(std::ostream & file) {
    file << language << " {\n";
    for (std::uint32_t i = 0; i < message_count; ++i) {
        file << "    " << key_of(i) << " { \"" << text_of(i) << "\" }\n";
    }
    file << "}\n";
}

} // namespace

int main(int argc, char ** argv) {
    if (argc != 2) {
        std::cerr << "usage: write_contest DIRECTORY\n";
        return 2;
    }
    std::string const directory = argv[1];
    std::ofstream po(directory + "/contest.po");
    std::ofstream bundle(directory + '/' + language + ".txt");
    write_po(po);
    write_bundle(bundle);
    return po.flush() && bundle.flush() ? 0 : 3;
}
