#include "platform/store/StoredValue.h"

#include "platform/foundation/GeneralizedUtf8.h"

#include <QtCore/QDateTime>

namespace platform {

QString columnType(AttributeType type) {
    switch (type) {
    case AttributeType::String:
        return QStringLiteral("ANY");
    case AttributeType::Integer16:
    case AttributeType::Boolean:
    case AttributeType::Date:
        return QStringLiteral("INTEGER");
    case AttributeType::Binary:
    case AttributeType::Uuid:
        return QStringLiteral("BLOB");
    }
    return {};
}

QVariant toColumn(AttributeType type, const QVariant& value) {
    if (value.isNull()) return {};
    switch (type) {
    case AttributeType::String: {
        const QString text = value.toString();
        if (text.isEmpty()) return QStringLiteral(""); // Qt would bind a null string as NULL
        return isPlainText(text) ? QVariant(text) : QVariant(toGeneralizedUtf8(text));
    }
    case AttributeType::Boolean:
        return value.toBool() ? 1 : 0;
    case AttributeType::Date:
        return value.toDateTime().toMSecsSinceEpoch();
    case AttributeType::Uuid:
        return value.toUuid().toRfc4122();
    case AttributeType::Binary: {
        const QByteArray bytes = value.toByteArray();
        return bytes.isEmpty() ? QByteArray("") : bytes; // as with strings
    }
    case AttributeType::Integer16:
        return value;
    }
    return {};
}

QVariant fromColumn(AttributeType type, const QVariant& column) {
    if (column.isNull()) return {};
    switch (type) {
    case AttributeType::String:
        return column.typeId() == QMetaType::QByteArray ? fromGeneralizedUtf8(column.toByteArray())
                                                        : column.toString();
    case AttributeType::Integer16:
        return column.toInt();
    case AttributeType::Boolean:
        return column.toInt() != 0;
    case AttributeType::Date:
        return QDateTime::fromMSecsSinceEpoch(column.toLongLong(), Qt::UTC);
    case AttributeType::Uuid:
        return QUuid::fromRfc4122(column.toByteArray());
    case AttributeType::Binary:
        return column;
    }
    return {};
}

QVariant idToColumn(const QUuid& id) {
    return id.isNull() ? QVariant() : QVariant(id.toRfc4122());
}

QUuid idFromColumn(const QVariant& column) {
    return QUuid::fromRfc4122(column.toByteArray());
}

} // namespace platform
