#include "platform/mirror/TextValue.h"

#include <gtest/gtest.h>

namespace platform {

namespace {

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
