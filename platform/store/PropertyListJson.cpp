#include "platform/store/PropertyListJson.h"

#include "platform/foundation/FatalError.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace platform {

namespace {

const QString dateTag = QStringLiteral("$date");
const QString dataTag = QStringLiteral("$data");
const QString realTag = QStringLiteral("$real");
constexpr QChar escape = u'$';

QJsonValue jsonFromReal(double number) {
    if (std::isfinite(number) && number != std::floor(number)) return number;
    std::array<char, 32> text{}; // the shortest exact form has at most 24 characters
    const auto written = std::to_chars(text.data(), text.data() + text.size(), number);
    return QJsonObject{{realTag, QString::fromLatin1(text.data(), written.ptr - text.data())}};
}

std::optional<double> realFromText(const QString& string) {
    const QByteArray text = string.toLatin1();
    double number = 0;
    const auto read = std::from_chars(text.begin(), text.end(), number);
    if (read.ec != std::errc() || read.ptr != text.end()) return std::nullopt;
    return number;
}

QJsonValue jsonFromDate(const QDateTime& date) {
    const QString text = date.toString(Qt::ISODateWithMs);
    return QJsonObject{{dateTag, text.isEmpty() ? QJsonValue(date.toMSecsSinceEpoch()) : QJsonValue(text)}};
}

std::optional<QVariant> dateFromJson(const QJsonValue& json) {
    QDateTime date = json.isString() ? QDateTime::fromString(json.toString(), Qt::ISODateWithMs).toUTC()
                                     : QDateTime::fromMSecsSinceEpoch(json.toInteger(), Qt::UTC);
    if (!date.isValid() || !(json.isString() || json.isDouble())) return std::nullopt;
    return date;
}

QJsonValue jsonFromArray(const QVariantList& values) {
    QJsonArray array;
    for (const QVariant& value : values)
        array.append(jsonFromPropertyList(value));
    return array;
}

QJsonValue jsonFromDictionary(const QVariantMap& values) {
    const bool escapes = values.size() == 1 && values.firstKey().startsWith(escape);
    QJsonObject object;
    for (auto entry = values.begin(); entry != values.end(); ++entry)
        object.insert(escapes ? escape + entry.key() : entry.key(), jsonFromPropertyList(entry.value()));
    return object;
}

// What the only entry of an object stands for, if it is a tag.
std::optional<QVariant> taggedFromJson(const QString& tag, const QJsonValue& json) {
    if (tag == dateTag) return dateFromJson(json);
    if (tag == realTag) return realFromText(json.toString());
    if (tag != dataTag || !json.isString()) return std::nullopt;
    const auto data =
        QByteArray::fromBase64Encoding(json.toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    return data ? std::optional<QVariant>(*data) : std::nullopt;
}

QVariant objectFromJson(const QJsonObject& object) {
    const QString only = object.size() == 1 ? object.begin().key() : QString();
    if (const auto tagged = taggedFromJson(only, object.value(only))) return *tagged;
    const bool escapes = only.startsWith(QString(2, escape));
    QVariantMap dictionary;
    for (auto entry = object.begin(); entry != object.end(); ++entry)
        dictionary.insert(escapes ? entry.key().mid(1) : entry.key(), propertyListFromJson(entry.value()));
    return dictionary;
}

QVariant arrayFromJson(const QJsonArray& array) {
    QVariantList values;
    values.reserve(array.size());
    for (const auto& value : array)
        values.append(propertyListFromJson(value));
    return values;
}

} // namespace

QJsonValue jsonFromPropertyList(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::Nullptr:
        return QJsonValue::Null;
    case QMetaType::QString:
        return value.toString();
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Double:
        return jsonFromReal(value.toDouble());
    case QMetaType::QDateTime:
        return jsonFromDate(value.toDateTime());
    case QMetaType::QByteArray:
        return QJsonObject{{dataTag, QString::fromLatin1(value.toByteArray().toBase64())}};
    case QMetaType::QVariantList:
        return jsonFromArray(value.toList());
    case QMetaType::QVariantMap:
        return jsonFromDictionary(value.toMap());
    default:
        fatalError("a value that is no property list was to be written");
    }
}

QVariant propertyListFromJson(const QJsonValue& json) {
    switch (json.type()) {
    case QJsonValue::Object:
        return objectFromJson(json.toObject());
    case QJsonValue::Array:
        return arrayFromJson(json.toArray());
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        return QVariant::fromValue(nullptr);
    default:
        return json.toVariant();
    }
}

bool areSamePropertyLists(const QVariant& a, const QVariant& b) {
    const auto jsonOf = [](const QVariant& value) {
        return value.isValid() ? jsonFromPropertyList(value) : QJsonValue();
    };
    return jsonOf(a) == jsonOf(b);
}

} // namespace platform
