#include "Quillet/core/KeyStore.h"

#include "Quillet/core/UserSettings.h"

namespace quillet {

namespace {

const QString codeThemeKey = QStringLiteral("codeTheme");

} // namespace

KeyStore& KeyStore::shared() {
    static KeyStore keys(defaultKeyValueStore());
    return keys;
}

KeyStore::KeyStore(platform::UbiquitousKeyValueStore& store)
    : m_store(&store) {
    m_store->synchronize();
}

QString KeyStore::codeTheme() const {
    return m_store->string(codeThemeKey).value_or(QStringLiteral("xcode"));
}

void KeyStore::setCodeTheme(const QString& theme) {
    m_store->setObject(codeThemeKey, theme);
    m_store->synchronize();
}

} // namespace quillet
