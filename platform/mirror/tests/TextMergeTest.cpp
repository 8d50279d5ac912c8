#include "platform/mirror/TextMerge.h"

#include "platform/mirror/LineDiff.h"
#include "platform/mirror/TextValue.h"

#include <gtest/gtest.h>

#include <random>

namespace platform {

namespace {

MergedText merge(const char* base, const char* earlier, const char* later) {
    return mergeTexts(QString::fromUtf8(base), QString::fromUtf8(earlier), QString::fromUtf8(later));
}

MergedText clean(const char* text) {
    return {QString::fromUtf8(text), false};
}

MergedText conflict(const char* text) {
    return {QString::fromUtf8(text), true};
}

TEST(TextMergeTest, TakesChangesThatDoNotOverlap) {
    EXPECT_EQ(merge("a\nb\nc\n", "A\nb\nc\n", "a\nb\nC\n"), clean("A\nb\nC\n"));
    EXPECT_EQ(merge("a\nb\nc\n", "b\nc\n", "a\nb\nc\nd\n"), clean("b\nc\nd\n"));
    EXPECT_EQ(merge("a\nb\n", "a\nb\n", "a\n"), clean("a\n"));
    EXPECT_EQ(merge("a\nb\n", "X\nb\n", "a\nY\n"), clean("X\nY\n"))
        << "side by side is not one over the other";
    EXPECT_EQ(merge("a\n", "new\na\n", "A\n"), clean("new\nA\n"));
}

TEST(TextMergeTest, TakesEqualChangesOnce) {
    EXPECT_EQ(merge("a\nb\n", "a\nx\nb\n", "a\nx\nb\nz\n"), clean("a\nx\nb\nz\n"));
    EXPECT_EQ(merge("", "same", "same"), clean("same"));
}

TEST(TextMergeTest, TheLaterStaysWhereChangesOverlap) {
    EXPECT_EQ(merge("a\nb\nc\n", "a\n1\nc\n", "a\n2\nc\n"), conflict("a\n2\nc\n"));
    EXPECT_EQ(merge("a\n", "1\na\n", "2\na\n"), conflict("2\na\n")) << "two insertions in one place";
    EXPECT_EQ(merge("a\nb\nc\nd\n", "E\na\n1\nc\nd\n", "a\n2\nd\n"), conflict("E\na\n2\nd\n"))
        << "the rest of the earlier text is taken";
}

TEST(TextMergeTest, KeepsLineBreaks) {
    EXPECT_EQ(merge("a\r\nb\rc", "A\r\nb\rc", "a\r\nb\rC"), clean("A\r\nb\rC"));
    EXPECT_EQ(merge("a\nb", "a\r\nb", "a\nb\n"), clean("a\r\nb\n"));
    EXPECT_EQ(merge("a\nb\n", "a\nb\nc", "a\nb"), conflict("a\nb")) << "two lines must not become one";
}

// Random edits of texts of few different lines: whatever diff says turns one into the other, and a merge with
// an unchanged side is the other side.
TEST(TextMergeTest, DiffsDescribeWhatChanged) {
    std::mt19937 random(7);
    const auto randomText = [&random] {
        QString text;
        for (auto lines = random() % 12; lines > 0; --lines)
            text += QChar(static_cast<char16_t>(u'a' + random() % 4)) +
                    (random() % 5 == 0 ? QStringLiteral("\r\n") : QStringLiteral("\n"));
        return random() % 3 == 0 ? text.chopped(text.isEmpty() ? 0 : 1) : text;
    };
    for (int i = 0; i < 3000; ++i) {
        const QString base = randomText();
        const QString other = randomText();
        const Lines baseLines = splitLines(base);
        const Lines otherLines = splitLines(other);
        QString patched;
        qsizetype done = 0;
        for (const Hunk& hunk : diffLines(baseLines, otherLines)) {
            for (; done < hunk.baseStart; ++done)
                patched += baseLines[done];
            for (qsizetype line = hunk.start; line < hunk.limit; ++line)
                patched += otherLines[line];
            done = hunk.baseLimit;
        }
        for (; done < std::ssize(baseLines); ++done)
            patched += baseLines[done];
        ASSERT_EQ(patched, other) << base.toStdString();
        ASSERT_EQ(mergeTexts(base, other, base), (MergedText{other, false}));
        ASSERT_EQ(mergeTexts(base, base, other), (MergedText{other, false}));
    }
}

TEST(TextMergeTest, FindsTheFewestLines) {
    const QString base = QStringLiteral("a\nb\nc\na\nb\nb\na\n");
    const QString other = QStringLiteral("c\nb\na\nb\na\nc\n");
    qsizetype touched = 0;
    for (const Hunk& hunk : diffLines(splitLines(base), splitLines(other)))
        touched += hunk.baseLimit - hunk.baseStart + hunk.limit - hunk.start;
    EXPECT_EQ(touched, 5);
}

TEST(TextMergeTest, HugeDifferencesAreOneChange) {
    QString base;
    QString other;
    for (int i = 0; i < 50'000; ++i) {
        base += QStringLiteral("base %1\n").arg(i);
        other += QStringLiteral("other %1\n").arg(i);
    }
    const auto hunks = diffLines(splitLines(base), splitLines(other));
    EXPECT_EQ(hunks, (std::vector{Hunk{0, 50'000, 0, 50'000}}));
    EXPECT_EQ(mergeTexts(base, QStringLiteral("first\n") + base, other).text,
              QStringLiteral("first\n") + other);
}

TEST(TextValueTest, AnyTextComesBack) {
    const QString lone = QStringLiteral("a") + QChar(0xD800) + QStringLiteral("\nb");
    for (const QString& text :
         {QString(QStringLiteral("plain \u00E9")), lone, QString(QChar(u'\0')), QString()})
        EXPECT_EQ(textOf(textValue(text)), text);
    EXPECT_TRUE(textValue(QStringLiteral("plain")).isString());
    EXPECT_TRUE(textValue(lone).isByteArray());
    EXPECT_EQ(textOf(QCborValue(nullptr)), QString());
    EXPECT_FALSE(textOf(QCborValue(7)));
}

} // namespace

} // namespace platform
