#include "platform/screens/text/LineBreaks.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

TEST(LineBreaks, SplitAndJoinGiveTheTextBack) {
    const QString text =
        QStringLiteral("a\r\nb\nc\rd\r\r\n\n") + QChar(u'\u2029') + QChar(char16_t{0xFDD0}) + u'e';
    const SplitText split = splitBreaks(text);
    EXPECT_EQ(split.text, QStringLiteral("a\nb\nc\nd\n\n\n\n\ne"));
    EXPECT_EQ(split.breaks.size(), 8U);
    EXPECT_EQ(joinBreaks(split.text, split.breaks), text);
}

TEST(LineBreaks, TheDominantBreakIsTheMostFrequent) {
    EXPECT_EQ(dominantBreak({}), LineBreak::Lf);
    EXPECT_EQ(dominantBreak(splitBreaks(QStringLiteral("a\r\nb\r\nc\n")).breaks), LineBreak::CrLf);
}

TEST(LineBreaks, RunsMoveToWhereTheirTextIsOnceItIsSplit) {
    const QString text = QStringLiteral("a\r\nbc\rd\r\n\r\nef");
    const QString shown = splitBreaks(text).text;
    TextAttributes bold;
    bold.bold = true;
    std::vector<AttributeRun> runs;
    for (const char16_t each : {u'a', u'b', u'd', u'f'})
        runs.push_back({text.indexOf(each), text.indexOf(each) + 1, bold});
    const auto split = splitRuns(text, runs);
    ASSERT_EQ(split.size(), runs.size());
    for (std::size_t i = 0; i < runs.size(); ++i)
        EXPECT_EQ(shown.sliced(split[i].start, 1), text.sliced(runs[i].start, 1));
    const auto whole = splitRuns(text, {{0, text.size(), bold}});
    EXPECT_EQ(whole, (std::vector<AttributeRun>{{0, shown.size(), bold}}));
    EXPECT_TRUE(splitRuns(text, {{2, 3, bold}}).empty()) << "half of a break";
}

} // namespace
