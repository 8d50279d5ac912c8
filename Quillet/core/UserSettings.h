#pragma once

#include "platform/store/UbiquitousKeyValueStore.h"

#include <QtCore/QString>

#include <optional>

namespace quillet {

// The store of all settings, in the data directory. Made once; any thread.
platform::UbiquitousKeyValueStore& defaultKeyValueStore();

// Settings of the user. No value is kept here: each read goes to the store, each write synchronises it.
class UserSettings {
public:
    static UserSettings& shared();

    explicit UserSettings(platform::UbiquitousKeyValueStore& store);

    // The language of the last new snippet.
    std::optional<QString> lastLanguage() const;
    void setLastLanguage(const QString& language);

    // 0 puts what was modified last first; any other value orders by title. 1 where nothing is stored.
    qint64 sortIndex() const;
    void setSortIndex(qint64 index);

private:
    platform::UbiquitousKeyValueStore* m_store;
};

} // namespace quillet
