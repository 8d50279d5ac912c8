#pragma once

#include <QtCore/QUuid>
#include <QtCore/QVariant>

namespace platform {

// Values as statements take and give them. Qt binds an empty string or array that is also null as NULL; null
// here is the null QUuid alone. A QUuid is its 16 bytes, which every database has a compact type for.
QVariant sqlValue(const QString& text);
QVariant sqlValue(const QByteArray& bytes);
QVariant sqlValue(const QUuid& id);
QUuid uuidOf(const QVariant& value);

// Whether the databases can tell the text from every other: no NUL, no half of a surrogate pair.
bool isStorable(const QString& text);

} // namespace platform
