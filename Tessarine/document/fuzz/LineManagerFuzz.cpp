// Reads bytes as a script of edits and compares the lines after each of them with those of the text.

#include "Tessarine/document/tests/LineOracle.h"

#include <cstdio>
#include <cstdlib>
#include <span>

using tessarine::LineOracle;

namespace {

// A byte each for the operation, for places in parts of 256 of the text, and for code units.
class EditScript {
public:
    explicit EditScript(std::span<const std::uint8_t> bytes)
        : m_bytes(bytes) {}

    LineOracle::Fault run() {
        while (!m_bytes.empty())
            if (auto fault = step()) return fault;
        return std::nullopt;
    }

private:
    LineOracle::Fault step() {
        switch (next() % 8) {
        case 0:
        case 1:
        case 2:
            return replace(0);
        case 3:
        case 4:
            return remove();
        case 5:
            return replace(next());
        case 6: {
            const std::int64_t row = next() * m_oracle.manager().lineCount() / 256;
            return m_oracle.setHeight(row, 0.5 * (1 + next()));
        }
        default:
            return m_oracle.rebuild(1 + next() % 16U);
        }
    }

    // The end of the script reads as zeros.
    std::uint8_t next() {
        if (m_bytes.empty()) return 0;
        const std::uint8_t byte = m_bytes.front();
        m_bytes = m_bytes.subspan(1);
        return byte;
    }

    std::int64_t length() const { return static_cast<std::int64_t>(m_oracle.text().size()); }

    std::int64_t nextLocation() { return next() * (length() + 1) / 256; }

    std::u16string nextText() {
        static constexpr std::u16string_view alphabet(u"\n\r\n\rab\u0085\u2028\u2029\0\v\xD83D", 12);
        std::u16string text;
        for (int count = next() % 8; count > 0; --count)
            text += alphabet[next() % alphabet.size()];
        return text;
    }

    LineOracle::Fault remove() {
        const std::int64_t location = nextLocation();
        return apply(location, next() * (length() - location + 1) / 256, u"");
    }

    LineOracle::Fault replace(std::int64_t removed) {
        const std::int64_t location = nextLocation();
        return apply(location, std::min(removed, length() - location), nextText());
    }

    LineOracle::Fault apply(std::int64_t location, std::int64_t removed, std::u16string_view text) {
        if (m_oracle.isLeftOut(location, removed, text)) return std::nullopt;
        if (auto fault = m_oracle.replace(location, removed, text)) return fault;
        return m_oracle.search(location, std::min<std::int64_t>(removed, length() - location));
    }

    std::span<const std::uint8_t> m_bytes;
    LineOracle m_oracle;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto fault = EditScript(std::span(data, size)).run();
    if (!fault) return 0;
    std::fprintf(stderr, "%s\n", fault->c_str());
    std::abort();
}
