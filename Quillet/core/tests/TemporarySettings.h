#pragma once

#include "Quillet/core/UserSettings.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

namespace quillet {

// Points the shared settings of this process at a fresh data directory. Every test is a process of its own.
class TemporarySettings : public ::testing::Test {
protected:
    TemporarySettings() { qputenv("XDG_DATA_HOME", root.path().toUtf8()); }

    QString path() const { return root.filePath(QStringLiteral("Quillet/Settings.json")); }

    // What another program would find on the disk now.
    QVariant onDisk(const QString& key) const {
        return platform::UbiquitousKeyValueStore(path()).object(key);
    }

    platform::UbiquitousKeyValueStore& store() const { return defaultKeyValueStore(); }

    QTemporaryDir root;
};

} // namespace quillet
