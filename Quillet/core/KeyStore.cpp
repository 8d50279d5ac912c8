#include "Quillet/core/KeyStore.h"

#include "Quillet/core/UserSettings.h"
#include "platform/foundation/NeverDestroyed.h"
#include "platform/store/PropertyList.h"

#include <algorithm>

namespace quillet {

namespace {

std::map<Language, bool> preferencesFrom(const QVariantMap& dictionary) {
    std::map<Language, bool> preferences;
    for (const Language language : allLanguages) {
        const auto enabled = platform::exactly<bool>(dictionary.value(rawValue(language)));
        preferences.emplace(language, enabled.value_or(true));
    }
    return preferences;
}

} // namespace

KeyStore& KeyStore::shared() {
    static platform::NeverDestroyed<KeyStore> keys(defaultKeyValueStore());
    return keys.get();
}

KeyStore::KeyStore(platform::UbiquitousKeyValueStore& store)
    : m_store(&store) {
    m_store->synchronize();
}

std::map<Language, bool> KeyStore::languagePreferences() {
    if (const auto stored = m_store->dictionary(Keys::languagePreferences)) return preferencesFrom(*stored);
    const auto preferences = preferencesFrom({});
    setLanguagePreferences(preferences);
    return preferences;
}

void KeyStore::setLanguagePreferences(const std::map<Language, bool>& preferences) {
    QVariantMap dictionary;
    for (const auto& [language, enabled] : preferences)
        dictionary.insert(rawValue(language), enabled);
    m_store->setObject(Keys::languagePreferences, dictionary);
}

std::vector<Language> KeyStore::enabledLanguages() {
    std::vector<Language> languages;
    for (const auto& [language, enabled] : languagePreferences())
        if (enabled) languages.push_back(language);
    std::ranges::sort(languages, {}, rawValue);
    return languages;
}

void KeyStore::setCreatedCustomZone() {
    m_store->synchronize();
    m_store->setBool(Keys::createdCustomZone, true);
    m_store->synchronize();
}

QString KeyStore::versionSeen() const {
    return m_store->string(Keys::versionSeen).value_or(QStringLiteral("0"));
}

void KeyStore::setVersionSeen(const QString& version) {
    m_store->setString(Keys::versionSeen, version);
}

QString KeyStore::codeTheme() const {
    return m_store->string(Keys::codeTheme).value_or(QStringLiteral("xcode"));
}

void KeyStore::setCodeTheme(const QString& theme) {
    m_store->setString(Keys::codeTheme, theme);
    m_store->synchronize();
}

} // namespace quillet
