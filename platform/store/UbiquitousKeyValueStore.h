#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <mutex>
#include <optional>

namespace platform {

// Small settings by key: strings, integers, booleans and dictionaries of these. Kept in one JSON file, which
// synchronize() replaces as a whole. Any thread.
class UbiquitousKeyValueStore {
public:
    // A file that is missing or no JSON object reads as empty; one that is no JSON object is kept beside
    // the new one, with the suffix ".unreadable".
    explicit UbiquitousKeyValueStore(QString path);

    // A null QVariant where the key is absent.
    QVariant object(const QString& key) const;
    // Absent as well where the value has another type.
    std::optional<QString> string(const QString& key) const;
    std::optional<qint64> integer(const QString& key) const;

    // Visible at once; on disk after synchronize(). A null QVariant is kept as null and reads as absent.
    void setObject(const QString& key, const QVariant& value);
    // False where the file could not be written; the values stay in memory for the next try.
    bool synchronize();

private:
    QString m_path;
    mutable std::mutex m_mutex; // guards what follows and the file
    QJsonObject m_values;
};

} // namespace platform
