// Writes the list of captures of each named language anew, of all if none is named:
//   language_captures [NAME...]
// A list is the test's word on what a sample looks like: read what changed in it.
#include "languages/catalogue/tests/ParsedSample.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <span>

namespace {

using namespace tessarine::languages;

void writeList(const CatalogueEntry& entry) {
    std::ofstream file(folderOf(entry) / "captures.golden", std::ios::binary);
    file << ParsedSample(entry).captureList();
}

bool isNamed(const CatalogueEntry& entry, std::span<char*> names) {
    return names.empty() || std::ranges::find(names, entry.name) != names.end();
}

} // namespace

int main(int argc, char** argv) try {
    for (const CatalogueEntry& entry : catalogueEntries())
        if (isNamed(entry, std::span(argv, argc).subspan(1))) writeList(entry);
    return 0;
} catch (const std::exception& error) {

    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
