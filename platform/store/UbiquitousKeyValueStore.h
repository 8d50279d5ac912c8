#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <functional>
#include <mutex>
#include <optional>

namespace platform {

// Small settings by key, each a property list (PropertyList.h says what may be one). All are in memory; one
// JSON file keeps them, which synchronize() replaces as a whole. Any thread; no reader waits for the disk. A
// read is a look-up in a hash and converts nothing.
class UbiquitousKeyValueStore {
public:
    // A file that is missing reads as empty. One that holds no settings (no JSON object, too deep, too large,
    // not readable) does so too, and is kept beside the new one, with the suffix ".unreadable".
    explicit UbiquitousKeyValueStore(QString path);

    const QString& path() const { return m_path; }

    // A null QVariant where the key is absent or its value is null.
    QVariant object(const QString& key) const;
    // These are absent as well where the value has another type, however close.
    std::optional<QString> string(const QString& key) const;
    std::optional<qint64> integer(const QString& key) const;
    std::optional<bool> boolean(const QString& key) const;
    std::optional<QVariantMap> dictionary(const QString& key) const;

    // Visible at once; on disk after synchronize(). A value that is no property list is a fault of the
    // program. A QVariant without a value is kept as null.
    void setObject(const QString& key, const QVariant& value);
    void setString(const QString& key, const QString& value);
    void setBool(const QString& key, bool value);

    // All keys, as of one moment.
    QHash<QString, QVariant> objects() const;
    // Sets `value` where the key still holds `expected`; both null for an absent key. Whether it did.
    bool replaceObject(const QString& key, const QVariant& expected, const QVariant& value);

    // `observer` is told of every value set, on the thread that set it, before the setter returns; it must
    // not call the store. Once another one is set it is not called any more.
    void setObserver(std::function<void()> observer);

    // True once all that was set before the call is on the disk. Touches no file where nothing was set since
    // the last time. False where the file could not be written; the values stay in memory for the next try.
    bool synchronize();

private:
    template <typename T>
    std::optional<T> valueAs(const QString& key) const;

    bool load();
    bool moveAside() const;

    const QString m_path;

    mutable std::mutex m_mutex; // guards these three; held for moments only
    std::function<void()> m_observer;
    QHash<QString, QVariant> m_values;
    quint64 m_revision = 0; // counts the values set

    std::mutex m_fileMutex; // guards these two and the file; taken before m_mutex
    quint64 m_writtenRevision = 0;
    bool m_isFileInTheWay = false; // an unreadable file that could not be moved aside yet
};

} // namespace platform
