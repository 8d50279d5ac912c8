#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QVariant>

#include <optional>

namespace platform {

// Property lists are what a key-value store keeps. As a QVariant, such a value is one of: null (a nullptr),
// QString, qint64, bool, double, QDateTime (valid, in UTC, to the millisecond), QByteArray, QVariantList and
// QVariantMap of property lists. A QVariant without a value stands for no property list at all.

// A value that holds others is one level, and so is each value inside.
inline constexpr int maximumPropertyListDepth = 500;

// `value` as a property list, whole numbers as qint64 and dates in UTC. Nothing where it, or something
// inside, has a type that is not told above or QMetaType::Int, or where it is too deep. No value at all
// becomes null.
std::optional<QVariant> propertyListFrom(const QVariant& value);

// What `value` holds, if it is a T and not only something that could become one: true is no 1, and "1"
// neither. The comparison of QVariant itself blurs these.
template <typename T>
std::optional<T> exactly(const QVariant& value) {
    if (value.metaType() != QMetaType::fromType<T>()) return std::nullopt;
    return *static_cast<const T*>(value.constData());
}

} // namespace platform
