#pragma once

#include "platform/store/ManagedObjectModel.h"

#include <QtCore/QCborValue>
#include <QtCore/QUuid>

#include <optional>

namespace platform {

// How a column of the local store (StoredValue.h) looks in an object's state: absent values are null, dates
// the same integers, UUIDs bytes; a text is a text or, where it is no plain one (GeneralizedUtf8.h), bytes of
// generalized UTF-8.

QCborValue toMirror(AttributeType type, const QVariant& column);

// Nothing where the value cannot be the attribute's: of another type, out of its range, or null though
// required.
std::optional<QVariant> fromMirror(const AttributeDescription& attribute, const QCborValue& value);

// A reference to an object; null to none.
QCborValue referenceTo(const QUuid& target);

// Nothing where the value is no reference.
std::optional<QUuid> targetOf(const QCborValue& value);

} // namespace platform
