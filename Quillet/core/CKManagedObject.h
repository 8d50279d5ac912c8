#pragma once

#include "platform/cloud/CKRecord.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QString>

#include <concepts>
#include <optional>
#include <type_traits>

namespace quillet {

// A shared object that maps to a cloud record. The type itself says the record type, which is its own short
// name; an optional may be absent.
template <typename T>
concept CKManagedObject =
    !std::is_copy_constructible_v<T> &&
    requires(T object, const T constant, std::optional<QByteArray> id, std::optional<QString> name,
             std::optional<QDateTime> lastUpdate, const platform::CKRecord record) {
        { constant.id() } -> std::same_as<std::optional<QByteArray>>;
        object.setId(id);
        { constant.name() } -> std::same_as<std::optional<QString>>;
        object.setName(name);
        { T::recordType() } -> std::same_as<QString>;
        { constant.lastUpdate() } -> std::same_as<std::optional<QDateTime>>;
        object.setLastUpdate(lastUpdate);
        { constant.isRevision() } -> std::same_as<bool>;
        { object.ckRecord() } -> std::same_as<std::optional<platform::CKRecord>>;
        { object.update(record) } -> std::same_as<void>;
    };

} // namespace quillet
