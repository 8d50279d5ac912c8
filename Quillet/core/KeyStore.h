#pragma once

#include "platform/store/UbiquitousKeyValueStore.h"

#include <QtCore/QString>

namespace quillet {

// Further keys of the settings store, by direct access.
class KeyStore {
public:
    // Synchronises the store as soon as it is made.
    static KeyStore& shared();

    explicit KeyStore(platform::UbiquitousKeyValueStore& store);

    // The highlighter's theme of the editor; "xcode" where nothing is stored.
    QString codeTheme() const;
    void setCodeTheme(const QString& theme);

private:
    platform::UbiquitousKeyValueStore* m_store;
};

} // namespace quillet
