#include "Tessarine/editing/TextEditHelper.h"

#include "Tessarine/editing/tests/LineFault.h"
#include "Tessarine/syntax/tests/RandomSource.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

struct Lines {
    explicit Lines(std::u16string_view text)
        : document(EditedDocument::empty()) {
        document.stringView->setInternalString(text);
        document.lineManager->rebuild();
    }

    TextEditResult replace(TextRange range, std::u16string_view text) {
        return TextEditHelper(*document.stringView, *document.lineManager, LineEnding::lf)
            .replaceCharacters(range, text);
    }

    EditedDocument document;
};

std::u16string withEndings(LineEnding lineEndings, std::u16string_view text) {
    EditedDocument document = EditedDocument::empty();
    return TextEditHelper(*document.stringView, *document.lineManager, lineEndings).withLineEndings(text);
}

TEST(TextEditHelperTest, TellsWhatTheLanguageModeNeeds) {
    Lines lines(u"one\ntwo\nthree");
    const TextEditResult result = lines.replace({2, 4}, u"x\ny\nz");
    EXPECT_EQ(result.startByte, 4);
    EXPECT_EQ(result.oldEndByteLength, 8);
    EXPECT_EQ(result.newEndByteLength, 10);
    EXPECT_EQ(result.oldEndLinePosition, (LinePosition{1, 2}));
    EXPECT_EQ(result.startLinePosition, (LinePosition{0, 2}));
    EXPECT_EQ(result.newEndLinePosition, (LinePosition{2, 1}));
    EXPECT_TRUE(result.didAddOrRemoveLines());
    EXPECT_FALSE(lines.replace({0, 1}, u"z").didAddOrRemoveLines());
    EXPECT_EQ(lines.document.stringView->string(), u"znx\ny\nzo\nthree");
}

// The cases that the line index does not follow if it is told of them as they are.
TEST(TextEditHelperTest, AnLfThatComesToStandBehindACrMakesOneBreak) {
    struct Case {
        std::u16string_view text;
        TextRange range;
        std::u16string_view replacement;
    };

    for (const auto& [text, range, replacement] : {
             Case{u"a\rrest\nend", {2, 0}, u"\n"},
             Case{u"a\r", {2, 0}, u"\n"},
             Case{u"\r\r\rrest", {2, 0}, u"\n\n"},
             Case{u"a\r\nb", {2, 0}, u"\nx"},
             Case{u"a\r\n\nb", {2, 1}, u""},
             Case{u"a\rbc\nd", {2, 2}, u""},
             Case{u"a\rbc\nd", {2, 2}, u"\nx\r"},
             Case{u"a\r\n\n\nb", {2, 2}, u"\n"},
         }) {
        Lines lines(text);
        const TextEditResult result = lines.replace(range, replacement);
        EXPECT_EQ(lineFault(lines.document), std::nullopt);
        EXPECT_EQ(result.startByte, 2 * range.location);
        EXPECT_EQ(result.oldEndByteLength, 2 * range.length);
        EXPECT_EQ(result.newEndByteLength, ByteCount::of(replacement));
        EXPECT_EQ(result.startLinePosition, lines.document.lineManager->linePosition(range.location));
    }
}

TEST(TextEditHelperTest, LinesAreThoseOfTheTextAfterRandomEdits) {
    static constexpr std::u16string_view pieces[] = {
        u"\n", u"\n", u"\r", u"\r", u"\r\n", u"a", u"\u0085", u"b", u"\u2028", u"\xD83D", u"\xDE00", u"\n\r"};
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        RandomSource random(seed);
        Lines lines(random.textOf(pieces, random.below(12)));
        std::u16string text = lines.document.stringView->string();
        for (int step = 0; step < 60; ++step) {
            const std::int64_t location = random.below(std::ssize(text) + 1);
            const std::int64_t most = text.size() > 30 ? 20 : 3;
            const std::int64_t length = std::min(random.below(most), std::ssize(text) - location);
            const std::u16string inserted = random.textOf(pieces, random.below(3));
            lines.replace({location, length}, inserted);
            text.replace(static_cast<std::size_t>(location), static_cast<std::size_t>(length), inserted);
            ASSERT_EQ(lineFault(lines.document), std::nullopt) << "seed " << seed << ", step " << step;
            ASSERT_EQ(lines.document.stringView->string(), text);
        }
    }
}

TEST(TextEditHelperTest, LineEndingsBecomeTheDocuments) {
    const std::u16string_view text = u"a\r\nb\rc\nd\n\r\re\u2028";
    EXPECT_EQ(withEndings(LineEnding::lf, text), u"a\nb\nc\nd\n\n\ne\u2028");
    EXPECT_EQ(withEndings(LineEnding::cr, text), u"a\rb\rc\rd\r\r\re\u2028");
    EXPECT_EQ(withEndings(LineEnding::crlf, text), u"a\r\nb\r\nc\r\nd\r\n\r\n\r\ne\u2028");
    EXPECT_EQ(withEndings(LineEnding::crlf, u"\r"), u"\r\n");
    EXPECT_EQ(withEndings(LineEnding::lf, u""), u"");
}

TEST(TextEditHelperTest, ABatchLeavesTheDocumentAsItIsAndRangesOutsideOut) {
    Lines lines(u"abcdef");
    const TextStore text =
        TextEditHelper(*lines.document.stringView, *lines.document.lineManager, LineEnding::lf)
            .applyBatchReplacements({{{{4, 1}, u"EE"}, {{0, 2}, u"x"}, {{5, 2}, u"?"}, {{-1, 1}, u"?"}}});
    EXPECT_EQ(text.text().substring(0, text.length()), u"xcdEEf");
    EXPECT_EQ(lines.document.stringView->string(), u"abcdef");
}

TEST(TextEditHelperDeathTest, ARangeOutsideOfTheTextStopsTheProgram) {
    Lines lines(u"a");
    EXPECT_DEATH(lines.replace({1, 1}, u""), "An edit lies outside of the document.");
}

} // namespace
