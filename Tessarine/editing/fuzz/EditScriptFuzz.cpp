// Reads bytes as a script of edits of a JSON text with its language mode, and compares what comes of it with
// a plain text, with lines made anew and with a tree of a fresh parse.

#include "Tessarine/editing/tests/EditScript.h"
#include "languages/grammars/Grammars.h"

#include <cstdio>
#include <cstdlib>
#include <span>

using namespace tessarine;

namespace {

constexpr std::u16string_view pieces[] = {
    u"1",      u"\r",      u"\n",         u"\r\n", u" ",      u"    ",           u"\t",     u"{", u"\"",
    u"[2]",    u"\"x\"",   u"{\"a\": 3}", u"null", u"[\n\n]", u"\"\U0001F600\"", u"\u2028", u"(", u"\xD83D",
    u"\xDE00", u"e\u0301", u"]",          u"}\n",  u"\n\r",   u"\u0085"};

// A byte a number. The end of the script reads as zeros.
class ScriptBytes {
public:
    explicit ScriptBytes(std::span<const std::uint8_t> bytes)
        : m_bytes(bytes) {}

    bool isEmpty() const { return m_bytes.empty(); }

    std::int64_t below(std::int64_t limit) {
        if (m_bytes.empty()) return 0;
        const std::uint8_t byte = m_bytes.front();
        m_bytes = m_bytes.subspan(1);
        return byte % limit;
    }

private:
    std::span<const std::uint8_t> m_bytes;
};

const TreeSitterLanguageMode& languageMode() {
    static const TreeSitterLanguageMode mode(std::make_shared<const TreeSitterLanguage>(
        languages::grammarNamed("JSON"), std::nullopt, std::nullopt,
        TreeSitterIndentationScopes{.indent = {"array", "object"},
                                    .inheritIndent = {},
                                    .outdent = {"}", "]"},
                                    .whitespaceDenotesBlocks = false}));
    return mode;
}

EditScript::Fault run(ScriptBytes bytes) {
    EditScript script([&bytes](std::int64_t limit) { return bytes.below(limit); }, pieces, &languageMode());
    while (!bytes.isEmpty())
        if (auto fault = script.step()) return fault;
    return script.finish();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto fault = run(ScriptBytes(std::span(data, size)));
    if (!fault) return 0;
    std::fprintf(stderr, "%s\n", fault->c_str());
    std::abort();
}
