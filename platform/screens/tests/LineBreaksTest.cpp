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

} // namespace
