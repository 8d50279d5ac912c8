#include "Tessarine/document/ComposedRange.h"

#include "Tessarine/document/StringView.h"
#include "Tessarine/document/tests/RandomText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <unicode/brkiter.h>
#include <vector>

using namespace tessarine;

namespace tessarine {

void PrintTo(const TextRange& range, std::ostream* out) {
    *out << "{" << range.location << ", " << range.length << "}";
}

} // namespace tessarine

namespace {

using Range = TextRange;

TEST(ComposedRange, GrowsToWholeCharacters) {
    // e with an acute, a family of three joined by ZWJ, a flag, x
    const StringView view(u"e\u0301\U0001F468\u200D\U0001F469\u200D\U0001F466\U0001F1E9\U0001F1EAx");
    EXPECT_EQ(view.composedRange(0), (Range{0, 2}));
    EXPECT_EQ(view.composedRange(1), (Range{0, 2}));
    EXPECT_EQ(view.composedRange(1, 1), (Range{0, 2}));
    EXPECT_EQ(view.composedRange(2), (Range{2, 8}));
    EXPECT_EQ(view.composedRange(5), (Range{2, 8}));
    EXPECT_EQ(view.composedRange(12, 1), (Range{10, 4}));
    EXPECT_EQ(view.composedRange(1, 2), (Range{0, 10}));
    EXPECT_EQ(view.composedRange(14), (Range{14, 1}));
    EXPECT_EQ(view.composedRange(13, 2), (Range{10, 5}));
    EXPECT_EQ(view.composedRange(15), (Range{15, 0}));
    EXPECT_EQ(StringView().composedRange(0), (Range{0, 0}));
}

TEST(ComposedRange, NeverEndsBetweenCrAndLf) {
    const StringView view(u"a\r\nb\r\r\n\n");
    EXPECT_EQ(view.composedRange(0, 1), (Range{0, 1}));
    EXPECT_EQ(view.composedRange(0, 2), (Range{0, 3}));
    EXPECT_EQ(view.composedRange(1, 1), (Range{1, 2}));
    EXPECT_EQ(view.composedRange(2), (Range{1, 2}));
    EXPECT_EQ(view.composedRange(2, 1), (Range{1, 2}));
    EXPECT_EQ(view.composedRange(2, 2), (Range{1, 3}));
    EXPECT_EQ(view.composedRange(4, 1), (Range{4, 1}));
    EXPECT_EQ(view.composedRange(6), (Range{5, 2}));
    EXPECT_EQ(view.composedRange(7, 1), (Range{7, 1}));
}

// Every range of random texts against the boundaries that ICU finds in a flat string, from its start.
TEST(ComposedRange, AgreesWithTheBoundariesOfAFlatText) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> iterator(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    for (std::uint32_t seed = 1; seed <= 12; ++seed) {
        SCOPED_TRACE(seed);
        const std::u16string text = RandomText(seed).units(150);
        iterator->setText(icu::UnicodeString(text.data(), static_cast<std::int32_t>(text.size())));
        std::vector<std::int64_t> boundaries;
        for (std::int32_t at = iterator->first(); at != icu::BreakIterator::DONE; at = iterator->next())
            boundaries.push_back(at);
        const TextStore store(text, {8, 4});
        for (std::int64_t start = 0; start <= 150; ++start)
            for (std::int64_t length = 0; length <= std::min<std::int64_t>(12, 150 - start); ++length) {
                const std::int64_t first = *(std::ranges::upper_bound(boundaries, start) - 1);
                // An empty range in front of a character gives it all.
                const bool isEmptyBefore = length == 0 && first == start && start < 150;
                const std::int64_t limit =
                    *std::ranges::lower_bound(boundaries, start + length + (isEmptyBefore ? 1 : 0));
                ASSERT_EQ(composedRange(store.text(), start, length), (Range{first, limit - first}))
                    << start << " " << length;
            }
    }
}

TEST(ComposedRange, SeesLongCharactersWhole) {
    const std::u16string marks(5000, u'\u0301');
    const StringView view(u"ab" + marks + u"c");
    EXPECT_EQ(view.composedRange(3000), (Range{1, 5001}));
    EXPECT_EQ(view.composedRange(5002), (Range{5002, 1}));

    std::u16string flags;
    for (int i = 0; i < 1001; ++i)
        flags += u"\U0001F1E9";
    const StringView flagView(u"x" + flags);
    EXPECT_EQ(flagView.composedRange(1003), (Range{1001, 4}));
    EXPECT_EQ(flagView.composedRange(2001), (Range{2001, 2}));
}

// A share that a break iterator kept would make each edit copy what it changes.
TEST(ComposedRange, KeepsNoShareOfTheText) {
    TextStore store(std::u16string(100, u'\u0416'));
    const auto unitsOfText = [&store] {
        const char16_t* units = nullptr;
        store.text().runAt(0).visit([&units](auto span) {
            if constexpr (std::is_same_v<decltype(span), std::span<const char16_t>>) units = span.data();
        });
        return units;
    };
    const char16_t* const before = unitsOfText();
    composedRange(store.text(), 50);
    store.replace(50, 1, u"\u0417");
    EXPECT_EQ(unitsOfText(), before);
    const TextSnapshot share = store.snapshot();
    store.replace(50, 1, u"\u0416");
    EXPECT_NE(unitsOfText(), before);
}

} // namespace
