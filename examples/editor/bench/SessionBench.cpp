// An editor's session beside those of other editors, each in a process of its own on the same generated file
// of C: 10,000 lines, 1,000,000 lines (50 MB), and 5.6 MB in one line.
//
// Usage: session_bench NAME COMMAND [NAME COMMAND]...   the first is ours. Each COMMAND gets the file's path
// as its last argument and prints "key|median|p99".

#include "Tessarine/document/bench/PeerTable.h"
#include "Tessarine/document/bench/SourceText.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

using namespace tessarine;

namespace {

struct Row {
    const char* what;
    const char* key;
};

constexpr Row rows[] = {
    {"open to first picture (ms)", "open"},
    {"key to changes (ms)", "key"},
    {"  and the whole window (ms)", "keyWhole"},
    {"  and the loop behind it (ms)", "loopAfterKey"},
    {"Return to changes (ms)", "return"},
    {"  and the whole window (ms)", "returnWhole"},
    {"  and the loop behind it (ms)", "loopAfterReturn"},
    {"key far to the right, to changes (ms)", "endKey"},
    {"  and the whole window (ms)", "endKeyWhole"},
    {"wheel, 3 lines, to changes (ms)", "scroll"},
    {"  and the whole window (ms)", "scrollWhole"},
    {"jump to changes (ms)", "jump"},
    {"  and the whole window (ms)", "jumpWhole"},
    {"memory when open (times the file)", "memory"},
    {"quit (ms)", "quit"},
};

std::string onOneLine() {
    std::string text = sourceText(106'000);
    text.resize(5'600'000);
    std::ranges::replace(text, '\n', ' ');
    return text;
}

bool printSessions(const char* title, const std::string& text, const std::vector<std::string>& peers) {
    const SharedFile file(text);
    if (!file.isWritten()) return false;
    std::printf("\n%s\n", title);
    const Figures ours = measurePeer(peers[1], file.path());
    PeerTable table(ours);
    for (std::size_t i = 2; i + 1 < peers.size(); i += 2)
        table.add(peers[i], measurePeer(peers[i + 1], file.path()));
    table.printHead();
    for (const auto& [what, key] : rows)
        if (ours.contains(key)) table.printRow(what, key, title);
    return true;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> peers(argv + 1, argv + argc);
    if (peers.size() < 2) return 1;
    return printSessions("10,000 lines of C", sourceText(10'000), peers) &&
                   printSessions("1,000,000 lines of C, 50 MB", sourceText(1'000'000), peers) &&
                   printSessions("5.6 MB of C in one line", onOneLine(), peers)
               ? 0
               : 1;
}
