#include "Tessarine/document/tests/LineOracle.h"

#include <gtest/gtest.h>

#include <random>

using tessarine::LineOracle;

namespace {

// Replacements, searches, heights and rebuilds on a text that is mostly line breaks.
class RandomEdits {
public:
    RandomEdits(unsigned seed, std::int64_t longestText)
        : m_random(seed)
        , m_longestText(longestText) {}

    LineOracle::Fault step() {
        const auto length = static_cast<std::int64_t>(m_oracle.text().size());
        switch (below(16)) {
        case 0:
            return m_oracle.setHeight(below(m_oracle.manager().lineCount()),
                                      0.25 * static_cast<double>(1 + below(99)));
        case 1:
            return below(20) == 0 ? m_oracle.rebuild(static_cast<std::size_t>(1 + below(7))) : std::nullopt;
        case 2:
        case 3: {
            const std::int64_t location = below(length + 1);
            return m_oracle.search(location, below(length - location + 1));
        }
        default:
            return replaceSomewhere(length);
        }
    }

    const LineOracle& oracle() const { return m_oracle; }

private:
    std::int64_t below(std::int64_t limit) {
        return static_cast<std::int64_t>(m_random() % static_cast<std::uint64_t>(limit));
    }

    LineOracle::Fault replaceSomewhere(std::int64_t length) {
        const std::int64_t location = below(length + 1);
        const bool removesMuch = length > m_longestText || below(40) == 0;
        const std::int64_t removed =
            std::min(length - location, removesMuch ? below(length + 1) : below(3) * below(3));
        const std::u16string text = below(3) == 0 ? u"" : someText();
        if (m_oracle.isLeftOut(location, removed, text)) return std::nullopt;
        return m_oracle.replace(location, removed, text);
    }

    std::u16string someText() {
        static constexpr std::u16string_view alphabet(u"\n\n\n\r\r\rab\u0085\u2028\u2029\0\v\xD83D", 14);
        std::u16string text;
        for (auto count = 1 + below(4) * below(3); count > 0; --count)
            text += alphabet[static_cast<std::size_t>(below(alphabet.size()))];
        return text;
    }

    std::mt19937_64 m_random;
    std::int64_t m_longestText;
    LineOracle m_oracle;
};

void runEdits(unsigned seed, std::int64_t longestText, int steps) {
    RandomEdits edits(seed, longestText);
    for (int step = 0; step < steps; ++step) {
        const auto fault = edits.step();
        ASSERT_EQ(fault, std::nullopt)
            << "seed " << seed << ", step " << step << ", length " << edits.oracle().text().size();
    }
}

// A million steps in five parts, for the parts to run side by side.
class SmallDocuments : public ::testing::TestWithParam<unsigned> {};

TEST_P(SmallDocuments, HaveTheLinesOfTheirText) {
    constexpr unsigned seeds = 500;
    for (unsigned seed = GetParam() * seeds; seed < (GetParam() + 1) * seeds; ++seed)
        ASSERT_NO_FATAL_FAILURE(runEdits(seed, 12, 400));
}

INSTANTIATE_TEST_SUITE_P(LineManagerRandom, SmallDocuments, ::testing::Range(0U, 5U));

TEST(LineManagerRandom, LargerDocumentsHaveTheLinesOfTheirText) {
    for (unsigned seed = 1; seed <= 20; ++seed)
        ASSERT_NO_FATAL_FAILURE(runEdits(seed, 600, 500));
}

} // namespace
