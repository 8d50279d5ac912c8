#include "Quillet/core/UserSettings.h"

#include "Quillet/core/DataDirectory.h"
#include "Quillet/core/FontDescriptor.h"
#include "platform/foundation/NeverDestroyed.h"

#include <QtCore/QDir>

namespace quillet {

platform::UbiquitousKeyValueStore& defaultKeyValueStore() {
    static platform::NeverDestroyed<platform::UbiquitousKeyValueStore> store(
        QDir(dataDirectory()).filePath(QStringLiteral("Settings.json")));
    return store.get();
}

UserSettings& UserSettings::shared() {
    static platform::NeverDestroyed<UserSettings> settings(defaultKeyValueStore());
    return settings.get();
}

UserSettings::UserSettings(platform::UbiquitousKeyValueStore& store)
    : lastLanguage(QStringLiteral("LastUsedLanguage"), std::nullopt, store)
    , snippetsMigrated(QStringLiteral("SnippetsMigrated"), false, store)
    , sortIndex(QStringLiteral("SnippetSort"), 1, store)
    , fontSize(QStringLiteral("EditorFontSize"), 14, store)
    , fontDescriptor(QStringLiteral("Font"), std::nullopt, store) {}

QFont UserSettings::font() const {
    const auto attributes = fontDescriptor.value();
    return attributes ? fontFromDescriptor(*attributes, fontSize.value())
                      : monospacedSystemFont(fontSize.value());
}

} // namespace quillet
