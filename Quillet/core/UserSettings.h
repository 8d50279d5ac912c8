#pragma once

#include "Quillet/core/Ubiquitous.h"

#include <QtCore/QString>
#include <QtCore/QVariantMap>
#include <QtGui/QFont>

#include <optional>

namespace quillet {

// The store of all settings, in the data directory. Made once; any thread.
platform::UbiquitousKeyValueStore& defaultKeyValueStore();

// Posted without an object on the default notification centre by who changed fontSize or fontDescriptor.
// No other setting tells of its changes.
inline const QString reloadTextViewNotification = QStringLiteral("SReloadTextView");

// Settings of the user. No value is kept here: each read goes to the store, each write synchronises it.
class UserSettings {
public:
    static UserSettings& shared();

    explicit UserSettings(platform::UbiquitousKeyValueStore& store);

    // The language of the last new snippet.
    Ubiquitous<std::optional<QString>> lastLanguage;
    // Whether the library of an older program has been taken over.
    Ubiquitous<bool> snippetsMigrated;
    // 0 puts what was modified last first; any other value orders by title.
    Ubiquitous<qint64> sortIndex;
    // In points.
    Ubiquitous<qint64> fontSize;
    // FontDescriptor.h tells the attributes.
    Ubiquitous<std::optional<QVariantMap>> fontDescriptor;

    // The editor's: what fontDescriptor describes, else the monospaced system font, at fontSize. Main thread.
    QFont font() const;
};

} // namespace quillet
