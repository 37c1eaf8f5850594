// Rewrites a preferences file, FILE with the contents of NEW, so that a test
// can kill it in between.
#include <cstdio>

#include "plugin/services/PreferenceFile.h"

int main(int argc, char** argv) {
    using kzo::plugin::PreferenceFile;
    if (argc != 3) return 2;
    const PreferenceFile text = PreferenceFile::read(argv[2]);
    std::puts("rewriting"); // a call to know the rest by
    std::fflush(stdout);
    return PreferenceFile::rewrite(argv[1], text.text) ? 0 : 1;
}
