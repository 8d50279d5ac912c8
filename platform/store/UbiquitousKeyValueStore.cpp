#include "platform/store/UbiquitousKeyValueStore.h"

#include "platform/foundation/DurableFile.h"
#include "platform/foundation/FatalError.h"
#include "platform/store/PropertyList.h"
#include "platform/store/PropertyListJson.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <utility>

namespace platform {

namespace {

// In bytes. What is larger is not read, so it is not written either.
constexpr qint64 maximumFileSize = 64LL * 1024 * 1024;

QByteArray jsonFromValues(const QHash<QString, QVariant>& values) {
    QJsonObject object;
    for (auto entry = values.begin(); entry != values.end(); ++entry)
        object.insert(entry.key(), jsonFromPropertyList(entry.value()));
    return QJsonDocument(object).toJson();
}

} // namespace

UbiquitousKeyValueStore::UbiquitousKeyValueStore(QString path)
    : m_path(std::move(path)) {
    m_isFileInTheWay = !load() && !moveAside();
}

// False where there is a file, and it holds no settings.
bool UbiquitousKeyValueStore::load() {
    QFile file(m_path);
    if (!file.exists()) return true;
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray bytes = file.read(maximumFileSize + 1);
    if (bytes.size() > maximumFileSize || file.error() != QFileDevice::NoError) return false;
    const auto document = QJsonDocument::fromJson(bytes);
    if (!document.isObject()) return false;
    const QJsonObject object = document.object();
    QHash<QString, QVariant> values;
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const auto value = propertyListFrom(propertyListFromJson(entry.value()));
        if (!value) return false;
        values.insert(entry.key(), *value);
    }
    m_values = std::move(values);
    return true;
}

// An earlier file of that name stays.
bool UbiquitousKeyValueStore::moveAside() const {
    const QString aside = m_path + QStringLiteral(".unreadable");
    for (int number = 1; number < 1000; ++number) {
        const QString name = number == 1 ? aside : aside + QString::number(number);
        if (!QFile::exists(name)) return QFile::rename(m_path, name);
    }
    return false;
}

QVariant UbiquitousKeyValueStore::object(const QString& key) const {
    const std::scoped_lock lock(m_mutex);
    return m_values.value(key);
}

template <typename T>
std::optional<T> UbiquitousKeyValueStore::valueAs(const QString& key) const {
    return exactly<T>(object(key));
}

std::optional<QString> UbiquitousKeyValueStore::string(const QString& key) const {
    return valueAs<QString>(key);
}

std::optional<qint64> UbiquitousKeyValueStore::integer(const QString& key) const {
    return valueAs<qint64>(key);
}

std::optional<bool> UbiquitousKeyValueStore::boolean(const QString& key) const {
    return valueAs<bool>(key);
}

std::optional<QVariantMap> UbiquitousKeyValueStore::dictionary(const QString& key) const {
    return valueAs<QVariantMap>(key);
}

void UbiquitousKeyValueStore::setObject(const QString& key, const QVariant& value) {
    const auto list = propertyListFrom(value);
    if (!list) fatalError("a value that is no property list was set in the key-value store");
    const std::scoped_lock lock(m_mutex);
    m_values.insert(key, *list);
    ++m_revision;
    if (m_observer) m_observer();
}

QHash<QString, QVariant> UbiquitousKeyValueStore::objects() const {
    const std::scoped_lock lock(m_mutex);
    return m_values;
}

bool UbiquitousKeyValueStore::replaceObject(const QString& key, const QVariant& expected,
                                            const QVariant& value) {
    const auto list = propertyListFrom(value);
    if (!list) fatalError("a value that is no property list was set in the key-value store");
    const std::scoped_lock lock(m_mutex);
    if (!areSamePropertyLists(m_values.value(key), expected)) return false;
    m_values.insert(key, *list);
    ++m_revision;
    return true;
}

void UbiquitousKeyValueStore::setObserver(std::function<void()> observer) {
    const std::scoped_lock lock(m_mutex);
    m_observer = std::move(observer);
}

void UbiquitousKeyValueStore::setString(const QString& key, const QString& value) {
    setObject(key, value);
}

void UbiquitousKeyValueStore::setBool(const QString& key, bool value) {
    setObject(key, value);
}

bool UbiquitousKeyValueStore::synchronize() {
    const std::scoped_lock fileLock(m_fileMutex);
    std::unique_lock lock(m_mutex);
    const quint64 revision = m_revision;
    if (revision == m_writtenRevision) return true;
    const auto values = m_values; // shared, not copied, while no other thread sets a value
    lock.unlock();
    const QByteArray json = jsonFromValues(values);
    if (json.size() > maximumFileSize) return false;
    if (m_isFileInTheWay && !moveAside()) return false;
    m_isFileInTheWay = false;
    if (!replaceDurably(m_path, json)) return false;
    m_writtenRevision = revision;
    return true;
}

} // namespace platform
