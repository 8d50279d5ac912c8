#include "Tessarine/document/LineBreakScanner.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using namespace tessarine;

namespace {

std::vector<LineBreak> searched(std::u16string_view text) {
    std::vector<LineBreak> breaks;
    std::int64_t from = 0;
    while (const auto found = rangeOfNextNewLine(text, from)) {
        breaks.push_back(*found);
        from = found->end();
    }
    return breaks;
}

template <class Unit>
std::vector<LineBreak> scanned(std::basic_string_view<Unit> text, std::size_t cut) {
    std::vector<LineBreak> breaks;
    const auto sink = [&](LineBreak lineBreak) { breaks.push_back(lineBreak); };
    LineBreakScanner scanner;
    scanner.scan(std::span<const Unit>(text.substr(0, cut)), sink);
    scanner.scan(std::span<const Unit>(text.substr(cut)), sink);
    scanner.finish(sink);
    EXPECT_EQ(scanner.position(), static_cast<std::int64_t>(text.size()));
    return breaks;
}

TEST(LineBreakScanner, EveryCodeUnitIsABreakOrNot) {
    const std::u16string_view breaks = u"\n\r\u0085\u2028\u2029";
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const std::u16string text(64, static_cast<char16_t>(unit));
        const std::size_t expected = breaks.contains(text[0]) ? 64 : 0;
        ASSERT_EQ(scanned(std::u16string_view(text), 0).size(), expected) << unit;
        ASSERT_EQ(searched(text).size(), expected) << unit;
    }
}

TEST(LineBreakScanner, PiecesOfBothWidthsGiveTheBreaksOfTheWhole) {
    std::mt19937 random(20'240);
    for (int round = 0; round < 3'000; ++round) {
        std::u16string wide(random() % 300, u'x');
        for (char16_t& unit : wide)
            if (random() % 6 == 0) unit = u"\r\n\u0085\u00FFy"[random() % 5];
        const std::basic_string<unsigned char> narrow(wide.begin(), wide.end());
        const std::size_t cut = random() % (wide.size() + 1);
        const auto expected = searched(wide);
        ASSERT_EQ(scanned(std::u16string_view(wide), cut), expected) << "round " << round;
        ASSERT_EQ(scanned(std::basic_string_view<unsigned char>(narrow), cut), expected) << "round " << round;
    }
}

TEST(LineBreakScanner, ACrlfMayStraddlePieces) {
    EXPECT_EQ(scanned(std::u16string_view(u"a\r\n\r"), 2), (std::vector<LineBreak>{{1, 2}, {3, 1}}));
    EXPECT_EQ(rangeOfNextNewLine(u"\r\n", 2), std::nullopt);
}

} // namespace
