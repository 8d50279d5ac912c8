#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace tessarine {

// Texts of all kinds of code units from one seed: runs of one kind, as documents have them, and single
// strays.
class RandomText {
public:
    explicit RandomText(std::uint32_t seed)
        : m_engine(seed) {}

    // In [0, limit]. The same on every machine, unlike the library's distributions.
    std::int64_t upTo(std::int64_t limit) {
        return static_cast<std::int64_t>(m_engine() % static_cast<std::uint64_t>(limit + 1));
    }

    std::u16string units(std::int64_t count) {
        std::u16string text;
        while (static_cast<std::int64_t>(text.size()) < count)
            appendRun(text);
        text.resize(static_cast<std::size_t>(count));
        return text;
    }

private:
    void appendRun(std::u16string& text) {
        static const std::u16string wide[] = {
            u"\u0416", u"\uFF21",  u"\U0001F600",           u"\xD83D",
            u"\xDE00", u"e\u0301", u"\U0001F1E9\U0001F1EA", u"\u1100\u1161"};
        const std::int64_t kind = upTo(9);
        for (std::int64_t i = upTo(30); i >= 0; --i) {
            if (kind < 5)
                text += static_cast<char16_t>(u' ' + upTo(94));
            else if (kind < 7)
                text += static_cast<char16_t>(upTo(0xFF));
            else if (kind < 8)
                text += i % 2 == 0 ? u"\r\n" : u"\n";
            else
                text += wide[upTo(7)];
        }
    }

    std::mt19937_64 m_engine;
};

} // namespace tessarine
