#include "platform/mirror/TextValue.h"

#include "platform/foundation/GeneralizedUtf8.h"

namespace platform {

QCborValue textValue(const QString& text) {
    return isPlainText(text) ? QCborValue(text) : QCborValue(toGeneralizedUtf8(text));
}

std::optional<QString> textOf(const QCborValue& value) {
    if (value.isNull()) return QString();
    if (value.isString()) return value.toString();
    if (value.isByteArray()) return fromGeneralizedUtf8(value.toByteArray());
    return std::nullopt;
}

} // namespace platform
