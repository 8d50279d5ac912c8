#include "platform/cloud/SqlValue.h"

namespace platform {

QVariant sqlValue(const QString& text) {
    return text.isNull() ? QVariant(QStringLiteral("")) : QVariant(text);
}

QVariant sqlValue(const QByteArray& bytes) {
    return bytes.isNull() ? QVariant(QByteArray("")) : QVariant(bytes);
}

QVariant sqlValue(const QUuid& id) {
    return id.isNull() ? QVariant(QMetaType::fromType<QByteArray>()) : QVariant(id.toRfc4122());
}

QUuid uuidOf(const QVariant& value) {
    return QUuid::fromRfc4122(value.toByteArray());
}

bool isStorable(const QString& text) {
    return !text.contains(QChar(0)) && text.isValidUtf16();
}

} // namespace platform
