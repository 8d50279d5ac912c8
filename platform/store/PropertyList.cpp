#include "platform/store/PropertyList.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QString>

namespace platform {

namespace {

std::optional<QVariant> listFrom(const QVariant& value, int levels);

std::optional<QVariant> arrayFrom(const QVariantList& values, int levels) {
    QVariantList array;
    array.reserve(values.size());
    for (const QVariant& value : values) {
        const auto item = listFrom(value, levels);
        if (!item) return std::nullopt;
        array.append(*item);
    }
    return array;
}

std::optional<QVariant> dictionaryFrom(const QVariantMap& values, int levels) {
    QVariantMap dictionary;
    for (auto entry = values.begin(); entry != values.end(); ++entry) {
        const auto item = listFrom(entry.value(), levels);
        if (!item) return std::nullopt;
        dictionary.insert(dictionary.end(), entry.key(), *item);
    }
    return dictionary;
}

// `levels` is how many more may be opened, this one included.
std::optional<QVariant> listFrom(const QVariant& value, int levels) {
    if (levels == 0) return std::nullopt;
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        return QVariant::fromValue(nullptr);
    case QMetaType::Int:
        return QVariant(value.toLongLong());
    case QMetaType::QString:
    case QMetaType::LongLong:
    case QMetaType::Bool:
    case QMetaType::Double:
    case QMetaType::QByteArray:
        return value;
    case QMetaType::QDateTime:
        if (!value.toDateTime().isValid()) return std::nullopt;
        return value.toDateTime().toUTC();
    case QMetaType::QVariantList:
        return arrayFrom(value.toList(), levels - 1);
    case QMetaType::QVariantMap:
        return dictionaryFrom(value.toMap(), levels - 1);
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<QVariant> propertyListFrom(const QVariant& value) {
    return listFrom(value, maximumPropertyListDepth);
}

} // namespace platform
