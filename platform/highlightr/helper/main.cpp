// The program's highlighter: a script engine in a process that may do nothing but answer.
//
//   quillet-highlighter                    answers framed requests on its standard input
//   quillet-highlighter --list-languages   prints the languages it knows, one a line

#include "platform/highlightr/Frames.h"
#include "platform/highlightr/helper/ScriptEngine.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

using namespace platform::highlight;

namespace {

// Nothing of what the script does may reach a file or the network: with no descriptor left to open, every
// open and every socket fails.
void dropPowers() {
    const auto limit = [](auto resource, rlim_t most) {
        const rlimit both{most, most};
        return setrlimit(resource, &both) == 0;
    };
    const bool dropped = limit(RLIMIT_NOFILE, 3) && limit(RLIMIT_FSIZE, 0) && limit(RLIMIT_CORE, 0) &&
                         prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0;
    if (!dropped) _exit(EXIT_FAILURE);
}

// A script inside a regular expression cannot be interrupted and does not notice that its program is gone.
void endWithParent() {
    std::thread([parent = getppid()] {
        while (getppid() == parent)
            std::this_thread::sleep_for(std::chrono::seconds(1));
        _exit(EXIT_SUCCESS);
    }).detach();
}

bool readExactly(void* into, std::size_t size) {
    return std::fread(into, 1, size, stdin) == size;
}

void writeFrame(std::u16string_view text) {
    const auto length = static_cast<std::uint32_t>(text.size() * sizeof(char16_t));
    std::fwrite(&length, sizeof length, 1, stdout);
    std::fwrite(text.data(), sizeof(char16_t), text.size(), stdout);
    std::fflush(stdout);
}

// Ends the process at the end of the input and at a request that breaks the format.
int serve(const ScriptEngine& engine) {
    writeFrame(u"");
    std::uint32_t size = 0;
    while (readExactly(&size, sizeof size)) {
        if (size < sizeof(RequestHeader) || size > longestRequest || size % 2 != 0) return EXIT_FAILURE;
        RequestHeader header{};
        std::u16string text((size - sizeof header) / 2, u'\0');
        if (!readExactly(&header, sizeof header) || !readExactly(text.data(), size - sizeof header))
            return EXIT_FAILURE;
        const bool named = header.languageLength != noLanguage;
        const std::size_t languageLength = named ? header.languageLength : 0;
        if (languageLength > text.size()) return EXIT_FAILURE;
        const std::u16string_view all(text);
        const std::u16string answer = engine.highlight(
            all.substr(languageLength), named ? std::optional(all.substr(0, languageLength)) : std::nullopt,
            header.sampleSize);
        writeFrame(answer);
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    const ScriptEngine engine;
    if (argc == 2 && std::strcmp(argv[1], "--list-languages") == 0) {
        for (const std::string& name : engine.languages())
            std::puts(name.c_str());
        return EXIT_SUCCESS;
    }
    dropPowers();
    endWithParent();
    return serve(engine);
}
