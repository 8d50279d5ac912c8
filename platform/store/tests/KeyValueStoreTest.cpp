#include "platform/store/UbiquitousKeyValueStore.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

using platform::UbiquitousKeyValueStore;

namespace {

const QString key = QStringLiteral("key");

TEST(KeyValueStore, KeepsTypedValuesOverARestart) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("sub/settings.json"));
    {
        UbiquitousKeyValueStore store(path);
        store.setObject(QStringLiteral("text"), QStringLiteral("xcode"));
        store.setObject(QStringLiteral("number"), 3);
        store.setObject(QStringLiteral("gone"), QVariant());
        EXPECT_EQ(store.integer(QStringLiteral("number")), 3);
        ASSERT_TRUE(store.synchronize());
        store.setObject(QStringLiteral("unsynchronized"), 1);
    }
    const UbiquitousKeyValueStore store(path);
    EXPECT_EQ(store.string(QStringLiteral("text")), QStringLiteral("xcode"));
    EXPECT_EQ(store.integer(QStringLiteral("number")), 3);
    EXPECT_TRUE(store.object(QStringLiteral("gone")).isNull());
    EXPECT_TRUE(store.object(QStringLiteral("unsynchronized")).isNull());
}

TEST(KeyValueStore, AnotherTypeReadsAsAbsent) {
    const QTemporaryDir directory;
    UbiquitousKeyValueStore store(directory.filePath(QStringLiteral("settings.json")));
    store.setObject(key, QStringLiteral("12"));
    EXPECT_EQ(store.integer(key), std::nullopt);
    store.setObject(key, 1.5);
    EXPECT_EQ(store.integer(key), std::nullopt);
    EXPECT_EQ(store.string(key), std::nullopt);
}

TEST(KeyValueStore, AnUnreadableFileIsKeptBesideTheNewOne) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("settings.json"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{ broken");
    file.close();
    UbiquitousKeyValueStore store(path);
    EXPECT_TRUE(store.object(key).isNull());
    store.setObject(key, true);
    ASSERT_TRUE(store.synchronize());
    QFile kept(path + QStringLiteral(".unreadable"));
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), "{ broken");
}

} // namespace
