#pragma once

#include "platform/store/ManagedObjectModel.h"

#include <QtCore/QUuid>

namespace platform {

// How values lie in SQLite's columns.
//
// Dates are whole milliseconds since 1970 UTC: an integer compares and merges exactly. Text is TEXT, but
// where SQLite would alter it (isPlainText() tells), it is a BLOB of generalized UTF-8 in the same column.

// The declared type of the column, for a STRICT table.
QString columnType(AttributeType type);

QVariant toColumn(AttributeType type, const QVariant& value);
QVariant fromColumn(AttributeType type, const QVariant& column);

// A null id is an absent one.
QVariant idToColumn(const QUuid& id);
QUuid idFromColumn(const QVariant& column);

} // namespace platform
