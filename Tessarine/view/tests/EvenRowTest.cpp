#include "Tessarine/view/EvenRow.h"

#include "Tessarine/view/QtTextLine.h"
#include "Tessarine/view/QtTextShaper.h"
#include "Tessarine/view/tests/SampleRows.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace tessarine;

namespace {

const QString fixedFamily = QStringLiteral("DejaVu Sans Mono");

// Printable text in runs of colours, traits and kerns, with a line break behind it in one of three.
std::shared_ptr<AttributedString> randomString(std::mt19937& random, int length) {
    std::u16string text;
    for (int i = 0; i < length; ++i)
        text += static_cast<char16_t>(u' ' + random() % 95);
    text += std::u16string_view(random() % 3 == 0 ? u"\r\n" : u"");
    auto string = sampleString(text);
    const Font font{fixedFamily.toStdString(), 13, {}};
    string->addAttributes({.font = font}, {0, string->length()});
    for (int i = 0; i < length / 6; ++i) {
        const std::int64_t start = static_cast<std::int64_t>(random() % text.size());
        const TextRange range{start, std::min<std::int64_t>(string->length() - start, random() % 12)};
        if (random() % 3 == 0) string->addAttributes({.font = font.withTraits(FontTraits::bold)}, range);
        if (random() % 5 == 0) string->addAttributes({.kern = 1.5}, range);
        string->addAttributes(
            {.foregroundColor = Color(RGBAColor::ofHex(static_cast<std::uint32_t>(random() % 0xFFFFFF)))},
            range);
    }
    return string;
}

struct Row {
    explicit Row(const std::shared_ptr<const AttributedString>& string)
        : text(RowText::of(*string, {.location = 0, .length = string->length()}, styles)) {}

    RowStyles styles;
    RowText text;
};

class RandomEvenRow : public ::testing::TestWithParam<unsigned> {};

TEST_P(RandomEvenRow, IsReckonedAsItIsLaidOut) {
    std::mt19937 random(GetParam());
    const Row row(randomString(random, 1 + static_cast<int>(random() % 150)));
    ASSERT_TRUE(row.text.isEven()) << "the fixed font of the tests";
    const RowLayout layout(row.text, UserInterfaceStyle::Light);
    const int length = static_cast<int>(row.text.text.size());
    for (int at = 0; at <= length; ++at)
        ASSERT_EQ(evenX(row.text, at), layout.line().cursorToX(at)) << at << " seed " << GetParam();
    for (int i = 0; i < 40; ++i) {
        const double x = layout.width() * static_cast<double>(random() % 1'001) / 1'000;
        EXPECT_TRUE(x == layout.width() || evenNearest(row.text, x) == layout.nearestBoundary(x)) << x;
        const int fitting = evenFittingUnits(row.text, x);
        EXPECT_TRUE(fitting == 1 || layout.line().cursorToX(fitting) <= x) << x;
        EXPECT_TRUE(fitting == length || layout.line().cursorToX(fitting + 1) > x) << x;
    }
    EXPECT_EQ(evenFittingUnits(row.text, layout.width()), length);
    EXPECT_EQ(evenNearest(row.text, layout.width()), length);
    const auto line = QtTextLine(row.text, 0, std::make_shared<RowLayouts>());
    EXPECT_EQ(line.typographicBounds().width, layout.width());
    EXPECT_EQ(line.typographicBounds().ascent, layout.line().ascent());
    EXPECT_EQ(line.typographicBounds().descent, layout.line().descent());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEvenRow, ::testing::Range(0U, 12U));

TEST(EvenRow, IsOnlyWhatCanBeReckoned) {
    const auto isEven = [](std::u16string_view text, const Font& font) {
        const auto string = sampleString(text);
        string->addAttributes({.font = font}, {0, string->length()});
        return Row(string).text.isEven();
    };
    const Font fixed{fixedFamily.toStdString(), 13, {}};
    EXPECT_TRUE(isEven(u"a + b\n", fixed));
    EXPECT_FALSE(isEven(u"a\tb", fixed));
    EXPECT_FALSE(isEven(u"e\u0301", fixed));
    EXPECT_FALSE(isEven(u"a\u05D0", fixed));
    EXPECT_FALSE(isEven(u"a\nb", fixed));
    EXPECT_FALSE(isEven(u"a + b", Font{"DejaVu Sans", 13, {}}));
}

// Of a long row only the pieces in the clip are laid out; they look as the row does as a whole.
TEST(EvenRow, IsDrawnInPieces) {
    std::mt19937 random(3);
    const Row row(randomString(random, 900));
    const auto picture = [](const auto& draw) {
        QImage image(7'500, 24, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        draw(painter);
        return image;
    };
    const QImage whole = picture(
        [&](QPainter& painter) { RowLayout(row.text, UserInterfaceStyle::Light).draw(painter, {0, 18}); });
    const QtTextLine line(row.text, 0, std::make_shared<RowLayouts>());
    EXPECT_EQ(picture([&](QPainter& painter) { line.draw(painter, {0, 18}, UserInterfaceStyle::Light); }),
              whole);
    const QRect shown(3'000, 0, 400, 24);
    const QImage clipped = picture([&](QPainter& painter) {
        painter.setClipRect(shown);
        line.draw(painter, {0, 18}, UserInterfaceStyle::Light);
    });
    EXPECT_EQ(clipped.copy(shown), whole.copy(shown));
}

} // namespace
