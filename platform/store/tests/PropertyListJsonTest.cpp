#include "platform/store/PropertyListJson.h"

#include "platform/store/PropertyList.h"
#include "platform/store/tests/Identical.h"

#include <QtCore/QDateTime>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <gtest/gtest.h>

#include <limits>

using namespace platform;

namespace {

const QString key = QStringLiteral("key");

QByteArray written(const QVariant& value) {
    const QJsonObject object{{key, jsonFromPropertyList(propertyListFrom(value).value())}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QVariant read(const QByteArray& json) {
    return propertyListFromJson(QJsonDocument::fromJson(json).object().value(key));
}

// Whether `value` comes back through the text of a file.
void expectKept(const QVariant& value) {
    const QByteArray json = written(value);
    EXPECT_TRUE(identical(read(json), propertyListFrom(value).value())) << json.constData();
}

QDateTime moment(qint64 milliseconds) {
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC);
}

QVariantMap entry(const QString& name, const QVariant& value) {
    return {{name, value}};
}

TEST(PropertyListJson, NumbersKeepTypeAndValue) {
    using Integers = std::numeric_limits<qint64>;
    using Reals = std::numeric_limits<double>;
    for (const qint64 number :
         {qint64(0), qint64(1), (qint64(1) << 53) + 1, Integers::min(), Integers::max()})
        expectKept(QVariant(number));
    for (const double number : {0.0, -0.0, 1.0, 0.1, -1.5, 1e15, 9.3e18, 1e300, Reals::denorm_min(),
                                Reals::max(), Reals::infinity(), -Reals::infinity(), Reals::quiet_NaN()})
        expectKept(number);
    expectKept(true);
    expectKept(false);
}

TEST(PropertyListJson, TextsComeBackUnitForUnit) {
    const QString lone = QChar(0xD800) + QStringLiteral("é") + QChar(0xDC00) + QChar(u'\0') + QChar(0xDBFF);
    for (const QString& text : {QStringLiteral(""), QStringLiteral("1"), QStringLiteral("true"),
                                QStringLiteral("\"\\\n\u2028😀"), QStringLiteral("\uFFFF\uFEFF"), lone}) {
        expectKept(text);
        expectKept(entry(text, text));
    }
}

TEST(PropertyListJson, DatesAndDataComeBack) {
    for (const qint64 milliseconds :
         {qint64(0), qint64(-1), qint64(1'709'208'000'123), qint64(-62'135'596'800'000),
          qint64(-65'000'000'000'000), qint64(253'402'300'800'000), std::numeric_limits<qint64>::max()})
        expectKept(moment(milliseconds));
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(static_cast<char>(byte));
    expectKept(all);
    expectKept(QByteArray());
}

TEST(PropertyListJson, DictionariesThatLookLikeTagsAreDictionaries) {
    const QVariant date = QStringLiteral("2024-02-29T12:00:00.000Z");
    for (const QString& tag :
         {QStringLiteral("$date"), QStringLiteral("$$date"), QStringLiteral("$$$date")}) {
        expectKept(entry(tag, date));
        expectKept(entry(tag, entry(tag, moment(0))));
        expectKept(QVariantList{entry(tag, 0), moment(0), QVariantMap{{tag, date}, {key, 1}}});
    }
    expectKept(entry(QStringLiteral("$data"), QStringLiteral("AAEC")));
    expectKept(entry(QStringLiteral("$real"), QStringLiteral("1")));
    expectKept(entry(QStringLiteral("$"), QVariant()));
    expectKept(entry(QString(), QVariantMap()));
    expectKept(QVariantList{QVariantList(), QVariant(), QVariantMap()});
}

TEST(PropertyListJson, APersonCanReadTheFile) {
    const QVariantMap values{{QStringLiteral("a"), moment(1'709'208'000'000)},
                             {QStringLiteral("b"), QByteArray("\0\1\2", 3)},
                             {QStringLiteral("c"), 2.0},
                             {QStringLiteral("d"), 2.5},
                             {QStringLiteral("e"), 2}};
    EXPECT_EQ(written(values), R"({"key":{"a":{"$date":"2024-02-29T12:00:00.000Z"},"b":{"$data":"AAEC"},)"
                               R"("c":{"$real":"2"},"d":2.5,"e":2}})");
}

TEST(PropertyListJson, ATagOfAnotherFormIsADictionaryAndStaysOne) {
    for (const char* json :
         {R"({"key":{"$date":"yesterday"}})", R"({"key":{"$date":true}})", R"({"key":{"$date":null}})",
          R"({"key":{"$data":"A*EC"}})", R"({"key":{"$data":7}})", R"({"key":{"$real":"1x"}})",
          R"({"key":{"$real":""}})", R"({"key":{"$real":1}})", R"({"key":{"$other":"1"}})"}) {
        const QVariant value = read(json);
        ASSERT_TRUE(exactly<QVariantMap>(value)) << json;
        EXPECT_TRUE(value.toMap().firstKey().startsWith(u'$')) << json;
        expectKept(value);
    }
}

} // namespace
