#include "platform/mirror/MirrorValue.h"

#include "platform/mirror/TextValue.h"
#include "platform/store/StoredValue.h"

#include <limits>

namespace platform {

namespace {

constexpr qsizetype identityBytes = 16;

std::optional<QVariant> integerColumn(const QCborValue& value, qint64 least, qint64 greatest) {
    if (!value.isInteger() || value.toInteger() < least || value.toInteger() > greatest) return std::nullopt;
    return value.toInteger();
}

std::optional<QVariant> bytesColumn(const QCborValue& value) {
    if (!value.isByteArray()) return std::nullopt;
    return toColumn(AttributeType::Binary, value.toByteArray());
}

std::optional<QVariant> textColumn(const QCborValue& value) {
    const auto text = textOf(value);
    return text ? std::optional(toColumn(AttributeType::String, *text)) : std::nullopt;
}

} // namespace

QCborValue toMirror(AttributeType type, const QVariant& column) {
    if (column.isNull()) return nullptr;
    switch (type) {
    case AttributeType::String:
        return column.typeId() == QMetaType::QByteArray ? QCborValue(column.toByteArray())
                                                        : QCborValue(column.toString());
    case AttributeType::Integer16:
    case AttributeType::Date:
        return column.toLongLong();
    case AttributeType::Boolean:
        return column.toInt() != 0;
    case AttributeType::Binary:
    case AttributeType::Uuid:
        return column.toByteArray();
    }
    return nullptr;
}

std::optional<QVariant> fromMirror(const AttributeDescription& attribute, const QCborValue& value) {
    if (value.isNull())
        return attribute.presence == Presence::Required ? std::nullopt : std::optional(QVariant());
    switch (attribute.type) {
    case AttributeType::String:
        return textColumn(value);
    case AttributeType::Integer16:
        return integerColumn(value, std::numeric_limits<qint16>::min(), std::numeric_limits<qint16>::max());
    case AttributeType::Boolean:
        return value.isBool() ? std::optional(QVariant(value.toBool() ? 1 : 0)) : std::nullopt;
    case AttributeType::Date:
        return integerColumn(value, std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max());
    case AttributeType::Uuid:
        return value.toByteArray().size() == identityBytes ? bytesColumn(value) : std::nullopt;
    case AttributeType::Binary:
        return bytesColumn(value);
    }
    return std::nullopt;
}

QCborValue referenceTo(const QUuid& target) {
    return target.isNull() ? QCborValue(nullptr) : QCborValue(target.toRfc4122());
}

std::optional<QUuid> targetOf(const QCborValue& value) {
    if (value.isNull()) return QUuid();
    if (!value.isByteArray() || value.toByteArray().size() != identityBytes) return std::nullopt;
    const QUuid target = QUuid::fromRfc4122(value.toByteArray());
    return target.isNull() ? std::nullopt : std::optional(target);
}

} // namespace platform
