#include "platform/foundation/GeneralizedUtf8.h"

#include <QtCore/QRandomGenerator>
#include <gtest/gtest.h>

using namespace platform;

namespace {

TEST(GeneralizedUtf8, AnyUtf16ComesBackUnchanged) {
    QRandomGenerator random(7);
    static constexpr char16_t alphabet[] = {u'a',   0,      0x7F,   0x80,   0x7FF, 0x800,
                                            0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xFFFF};
    for (int round = 0; round < 2000; ++round) {
        QString text;
        for (int i = 0; i < 12; ++i)
            text.append(QChar(alphabet[random.bounded(static_cast<int>(std::size(alphabet)))]));
        ASSERT_EQ(fromGeneralizedUtf8(toGeneralizedUtf8(text)), text) << "round " << round;
    }
}

TEST(GeneralizedUtf8, WellFormedTextIsOrdinaryUtf8) {
    const QString text = QString::fromUtf8("aé漢😀\r\n");
    EXPECT_EQ(toGeneralizedUtf8(text), text.toUtf8());
}

TEST(GeneralizedUtf8, BrokenBytesBecomeReplacementCharacters) {
    const QByteArray cases[] = {"\x80", "\xC0\xAF", "\xE2\x82", "\xF5\x80\x80\x80", "\xF4\x90\x80\x80"};
    for (const QByteArray& bytes : cases) {
        const QString text = fromGeneralizedUtf8("a" + bytes + "b");
        EXPECT_TRUE(text.startsWith(u'a') && text.endsWith(u'b')) << bytes.toHex().constData();
        EXPECT_EQ(text.count(QChar(QChar::ReplacementCharacter)), bytes.size()) << bytes.toHex().constData();
    }
}

TEST(GeneralizedUtf8, PlainTextIsWellFormedAndHoldsNoNul) {
    EXPECT_TRUE(isPlainText(QString::fromUtf8("plain 😀\r\n")));
    EXPECT_TRUE(isPlainText(QStringLiteral("within\uFEFF")));
    EXPECT_FALSE(isPlainText(QStringLiteral("\uFEFFin front")));
    EXPECT_FALSE(isPlainText(QStringLiteral("x\uFFFE")));
    EXPECT_FALSE(isPlainText(QStringLiteral("x\uFFFF")));
    EXPECT_FALSE(isPlainText(QString(QChar(u'\0'))));
    EXPECT_FALSE(isPlainText(QString(QChar(char16_t{0xD800}))));
    EXPECT_FALSE(isPlainText(QStringLiteral("x") + QChar(char16_t{0xDC00})));
}

} // namespace
