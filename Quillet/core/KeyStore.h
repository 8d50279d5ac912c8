#pragma once

#include "Quillet/core/Language.h"
#include "platform/store/UbiquitousKeyValueStore.h"

#include <QtCore/QString>

#include <map>
#include <vector>

namespace quillet {

// Further keys of the settings store, by direct access. Any thread.
class KeyStore {
public:
    // The keys in the store.
    struct Keys {
        static inline const QString languagePreferences = QStringLiteral("languagePreferences");
        static inline const QString createdCustomZone = QStringLiteral("CreatedCustomZone");
        static inline const QString versionSeen = QStringLiteral("versionSeen");
        static inline const QString codeTheme = QStringLiteral("codeTheme");
    };

    static KeyStore& shared();

    // Synchronises the store, which outlives this.
    explicit KeyStore(platform::UbiquitousKeyValueStore& store);

    // Which languages are enabled: all four, true where nothing else is stored. Where the store has no
    // dictionary, reading puts one there.
    std::map<Language, bool> languagePreferences();
    // On disk at somebody's next synchronisation.
    void setLanguagePreferences(const std::map<Language, bool>& preferences);
    // Ascending by raw value.
    std::vector<Language> enabledLanguages();

    // Records that the custom cloud zone exists, on disk before and after. Nothing reads it back.
    void setCreatedCustomZone();

    // The version whose news were shown last; "0" where nothing is stored.
    QString versionSeen() const;
    // On disk at somebody's next synchronisation.
    void setVersionSeen(const QString& version);

    // The highlighter's theme of the editor; "xcode" where nothing is stored.
    QString codeTheme() const;
    // Synchronises at once.
    void setCodeTheme(const QString& theme);

private:
    platform::UbiquitousKeyValueStore* m_store;
};

} // namespace quillet
