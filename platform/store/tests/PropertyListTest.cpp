#include "platform/store/PropertyList.h"

#include "platform/store/tests/Identical.h"

#include <QtCore/QDateTime>
#include <QtCore/QPoint>
#include <QtCore/QStringList>
#include <gtest/gtest.h>

using namespace platform;

namespace {

QVariant nested(int levels) {
    QVariant value = QVariantList();
    for (int level = 1; level < levels; ++level)
        value = QVariantList{value};
    return value;
}

TEST(PropertyList, TakesItsTypesInTheirOneForm) {
    EXPECT_TRUE(identical(propertyListFrom(3).value(), QVariant(qlonglong(3))));
    EXPECT_TRUE(identical(propertyListFrom(QVariantList{QVariant()}).value(),
                          QVariantList{QVariant::fromValue(nullptr)}));
    const auto noon = QDateTime::fromString(QStringLiteral("2024-02-29T12:00:00+02:00"), Qt::ISODate);
    const auto date = exactly<QDateTime>(propertyListFrom(QVariantMap{{QString(), noon}})->toMap().first());
    EXPECT_EQ(date->toString(Qt::ISODate), QStringLiteral("2024-02-29T10:00:00Z"));
}

TEST(PropertyList, RefusesWhatAFileCouldNotGiveBack) {
    const QList<QVariant> foreign{QPoint(),
                                  QStringList{},
                                  QDateTime(),
                                  1.5F,
                                  QVariantHash(),
                                  QVariantList{QPoint()},
                                  QVariantMap{{QString(), QVariantMap{{QString(), QStringList{}}}}},
                                  nested(maximumPropertyListDepth + 1)};
    for (const QVariant& value : foreign)
        EXPECT_FALSE(propertyListFrom(value)) << value.typeName();
    EXPECT_TRUE(propertyListFrom(nested(maximumPropertyListDepth)));
}

} // namespace
