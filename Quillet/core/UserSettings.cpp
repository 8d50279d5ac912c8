#include "Quillet/core/UserSettings.h"

#include "Quillet/core/DataDirectory.h"
#include "platform/foundation/NeverDestroyed.h"

#include <QtCore/QDir>

namespace quillet {

namespace {

const QString lastLanguageKey = QStringLiteral("LastUsedLanguage");
const QString sortIndexKey = QStringLiteral("SnippetSort");

} // namespace

platform::UbiquitousKeyValueStore& defaultKeyValueStore() {
    static platform::NeverDestroyed<platform::UbiquitousKeyValueStore> store(
        QDir(dataDirectory()).filePath(QStringLiteral("Settings.json")));
    return store.get();
}

UserSettings& UserSettings::shared() {
    static UserSettings settings(defaultKeyValueStore());
    return settings;
}

UserSettings::UserSettings(platform::UbiquitousKeyValueStore& store)
    : m_store(&store) {}

std::optional<QString> UserSettings::lastLanguage() const {
    return m_store->string(lastLanguageKey);
}

void UserSettings::setLastLanguage(const QString& language) {
    m_store->setObject(lastLanguageKey, language);
    m_store->synchronize();
}

qint64 UserSettings::sortIndex() const {
    return m_store->integer(sortIndexKey).value_or(1);
}

void UserSettings::setSortIndex(qint64 index) {
    m_store->setObject(sortIndexKey, index);
    m_store->synchronize();
}

} // namespace quillet
