#include "platform/store/UbiquitousKeyValueStore.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QSaveFile>

#include <cmath>

namespace platform {

UbiquitousKeyValueStore::UbiquitousKeyValueStore(QString path)
    : m_path(std::move(path)) {
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) return;
    const auto document = QJsonDocument::fromJson(file.readAll());
    if (document.isObject())
        m_values = document.object();
    else
        QFile::copy(m_path, m_path + QStringLiteral(".unreadable"));
}

QVariant UbiquitousKeyValueStore::object(const QString& key) const {
    const std::scoped_lock lock(m_mutex);
    return m_values.value(key).toVariant();
}

std::optional<QString> UbiquitousKeyValueStore::string(const QString& key) const {
    const std::scoped_lock lock(m_mutex);
    const auto value = m_values.value(key);
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<qint64> UbiquitousKeyValueStore::integer(const QString& key) const {
    const std::scoped_lock lock(m_mutex);
    const auto value = m_values.value(key);
    if (!value.isDouble() || value.toDouble() != std::floor(value.toDouble())) return std::nullopt;
    return value.toInteger();
}

void UbiquitousKeyValueStore::setObject(const QString& key, const QVariant& value) {
    const std::scoped_lock lock(m_mutex);
    m_values.insert(key, QJsonValue::fromVariant(value));
}

bool UbiquitousKeyValueStore::synchronize() {
    const std::scoped_lock lock(m_mutex);
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    file.write(QJsonDocument(m_values).toJson());
    return file.commit();
}

} // namespace platform
