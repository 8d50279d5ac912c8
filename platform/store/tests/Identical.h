#pragma once

#include <QtCore/QVariant>

#include <algorithm>
#include <bit>

namespace platform {

// Equal in type and value all the way down, and floating numbers bit for bit. QVariant's own comparison
// converts.
inline bool identical(const QVariant& a, const QVariant& b) {
    if (a.metaType() != b.metaType()) return false;
    switch (a.typeId()) {
    case QMetaType::Double:
        return std::bit_cast<quint64>(a.toDouble()) == std::bit_cast<quint64>(b.toDouble());
    case QMetaType::QVariantList:
        return std::ranges::equal(a.toList(), b.toList(), identical);
    case QMetaType::QVariantMap:
        return a.toMap().keys() == b.toMap().keys() &&
               std::ranges::equal(a.toMap().values(), b.toMap().values(), identical);
    default:
        return a == b;
    }
}

} // namespace platform
