#pragma once

#include "platform/store/PropertyList.h"
#include "platform/store/UbiquitousKeyValueStore.h"

#include <QtCore/QString>
#include <QtCore/QVariant>

#include <optional>
#include <utility>

namespace quillet {

// How a setting of type T lies in the store, T being the very type of a property list. The optional of such a
// T is null where it is absent.
template <typename T>
struct Stored {
    static std::optional<T> from(const QVariant& object) { return platform::exactly<T>(object); }

    static QVariant object(const T& value) { return value; }
};

template <typename T>
struct Stored<std::optional<T>> {
    static std::optional<std::optional<T>> from(const QVariant& object) {
        const auto value = platform::exactly<T>(object);
        return value ? std::optional(value) : std::nullopt;
    }

    static QVariant object(const std::optional<T>& value) { return value ? QVariant(*value) : QVariant(); }
};

// One setting: a key of a store that reads and writes as a T. Keeps no value. Any thread.
template <typename T>
class Ubiquitous {
public:
    // `store` outlives this.
    Ubiquitous(QString key, T defaultValue, platform::UbiquitousKeyValueStore& store)
        : m_key(std::move(key))
        , m_defaultValue(std::move(defaultValue))
        , m_store(&store) {}

    // The default where the key is absent, null, or of another type, which stays as it is.
    T value() const { return Stored<T>::from(m_store->object(m_key)).value_or(m_defaultValue); }

    // Synchronises at once.
    void set(const T& value) {
        m_store->setObject(m_key, Stored<T>::object(value));
        m_store->synchronize();
    }

private:
    QString m_key;
    T m_defaultValue;
    platform::UbiquitousKeyValueStore* m_store;
};

} // namespace quillet
