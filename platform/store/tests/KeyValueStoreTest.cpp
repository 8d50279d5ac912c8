#include "platform/store/PropertyList.h"
#include "platform/store/UbiquitousKeyValueStore.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QPoint>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

using platform::exactly;
using platform::UbiquitousKeyValueStore;

namespace {

const QString key = QStringLiteral("key");

class KeyValueStore : public ::testing::Test {
protected:
    void writeFile(const QByteArray& bytes) const {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    static QByteArray contents(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("settings.json"));
    QString aside = path + QStringLiteral(".unreadable");
};

TEST_F(KeyValueStore, KeepsSynchronizedValuesOverARestart) {
    path = directory.filePath(QStringLiteral("deep/er/settings.json"));
    {
        UbiquitousKeyValueStore store(path);
        store.setString(QStringLiteral("text"), QStringLiteral("xcode"));
        store.setObject(QStringLiteral("number"), 3);
        store.setBool(QStringLiteral("flag"), true);
        store.setObject(QStringLiteral("real"), 1.0);
        store.setObject(QStringLiteral("map"), QVariantMap{{key, QVariantList{1, QVariant()}}});
        store.setObject(QStringLiteral("gone"), 1);
        store.setObject(QStringLiteral("gone"), QVariant());
        ASSERT_TRUE(store.synchronize());
        store.setObject(QStringLiteral("unsynchronized"), 1);
        EXPECT_EQ(store.integer(QStringLiteral("unsynchronized")), 1);
    }
    const UbiquitousKeyValueStore store(path);
    EXPECT_EQ(store.string(QStringLiteral("text")), QStringLiteral("xcode"));
    EXPECT_EQ(store.integer(QStringLiteral("number")), 3);
    EXPECT_EQ(store.boolean(QStringLiteral("flag")), true);
    EXPECT_EQ(exactly<double>(store.object(QStringLiteral("real"))), 1.0);
    EXPECT_EQ(store.dictionary(QStringLiteral("map"))->value(key).toList().size(), 2);
    EXPECT_EQ(store.object(QStringLiteral("gone")).typeId(), QMetaType::Nullptr);
    EXPECT_FALSE(store.object(QStringLiteral("unsynchronized")).isValid());
}

TEST_F(KeyValueStore, AnotherTypeReadsAsAbsent) {
    UbiquitousKeyValueStore store(path);
    const QList<QVariant> values{QStringLiteral("1"), 1, 1.0, true, QVariant(), QVariantMap(),
                                 QVariantList{1}};
    for (const QVariant& value : values) {
        store.setObject(key, value);
        EXPECT_EQ(store.string(key).has_value(), value.typeId() == QMetaType::QString);
        EXPECT_EQ(store.integer(key).has_value(), value.typeId() == QMetaType::Int);
        EXPECT_EQ(store.boolean(key).has_value(), value.typeId() == QMetaType::Bool);
        EXPECT_EQ(store.dictionary(key).has_value(), value.typeId() == QMetaType::QVariantMap);
    }
    EXPECT_DEATH(store.setObject(key, QPoint()), "no property list");
}

TEST_F(KeyValueStore, AFileWithoutSettingsIsKeptBesideTheNewOne) {
    const QByteArray deep = QByteArray(700, '[') + QByteArray(700, ']');
    const QByteArray tooDeepToParse = QByteArray(200'000, '[');
    const QByteArray tooLarge = '{' + QByteArray(64 * 1024 * 1024, ' ') + '}';
    for (const QByteArray& bytes :
         {QByteArray("{ broken"), QByteArray("[]"), QByteArray(), QByteArray("{\"a\": \"\xFF\"}"),
          QByteArray("{\"a\": " + deep + '}'), QByteArray("{\"a\": " + tooDeepToParse), tooLarge}) {
        QFile::remove(aside);
        writeFile(bytes);
        UbiquitousKeyValueStore store(path);
        EXPECT_TRUE(contents(aside) == bytes) << bytes.left(20).constData();
        store.setObject(key, true);
        ASSERT_TRUE(store.synchronize());
        EXPECT_EQ(UbiquitousKeyValueStore(path).boolean(key), true);
    }
}

TEST_F(KeyValueStore, ASecondUnreadableFileDoesNotReplaceTheFirst) {
    writeFile("first");
    const UbiquitousKeyValueStore first(path);
    writeFile("second");
    const UbiquitousKeyValueStore second(path);
    EXPECT_EQ(contents(aside), "first");
    EXPECT_EQ(contents(aside + u'2'), "second");
}

TEST_F(KeyValueStore, AnUnreadableFileThatCannotBeMovedAsideIsNotReplaced) {
    writeFile("somebody's");
    ASSERT_TRUE(QFile::link(directory.filePath(QStringLiteral("missing/folder")), aside));
    UbiquitousKeyValueStore store(path);
    store.setObject(key, 1);
    EXPECT_FALSE(store.synchronize());
    EXPECT_EQ(contents(path), "somebody's");
    ASSERT_TRUE(QFile::remove(aside));
    EXPECT_TRUE(store.synchronize());
    EXPECT_EQ(contents(aside), "somebody's");
    EXPECT_EQ(UbiquitousKeyValueStore(path).integer(key), 1);
}

TEST_F(KeyValueStore, ASynchronizeWithNothingNewTouchesNoFile) {
    UbiquitousKeyValueStore store(path);
    EXPECT_TRUE(store.synchronize());
    EXPECT_FALSE(QFile::exists(path));
    store.setObject(key, 1);
    EXPECT_TRUE(store.synchronize());
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(store.synchronize());
    EXPECT_FALSE(QFile::exists(path));
    store.setObject(key, 2);
    EXPECT_TRUE(store.synchronize());
    EXPECT_EQ(UbiquitousKeyValueStore(path).integer(key), 2);
}

TEST_F(KeyValueStore, AFailedWriteSaysSoAndIsMadeUpForLater) {
    writeFile("a file where the folder should be");
    const QString inside = path + QStringLiteral("/settings.json");
    UbiquitousKeyValueStore store(inside);
    store.setObject(key, 1);
    EXPECT_FALSE(store.synchronize());
    EXPECT_FALSE(store.synchronize());
    EXPECT_EQ(store.integer(key), 1);
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(store.synchronize());
    EXPECT_EQ(UbiquitousKeyValueStore(inside).integer(key), 1);
}

TEST_F(KeyValueStore, WhatWouldBeTooLargeToReadIsNotWritten) {
    UbiquitousKeyValueStore store(path);
    store.setObject(key, 1);
    ASSERT_TRUE(store.synchronize());
    store.setObject(QStringLiteral("large"), QByteArray(50 * 1024 * 1024, 'x'));
    EXPECT_FALSE(store.synchronize());
    EXPECT_EQ(UbiquitousKeyValueStore(path).integer(key), 1);
    EXPECT_FALSE(QFile::exists(aside));
}

// Every writer counts its own key up; no reader sees a count go back, and what a writer synchronized is in
// the file when it looks. Integers only: the counts of references in other values are out of a thread
// checker's sight.
TEST_F(KeyValueStore, ThreadsReadWriteAndSynchronizeAtOnce) {
    constexpr int writers = 3;
    constexpr int rounds = 60;
    UbiquitousKeyValueStore store(path);
    std::atomic<int> faults = 0;
    std::atomic<bool> done = false;
    const auto count = [](const UbiquitousKeyValueStore& from, int writer) {
        return from.integer(QString::number(writer)).value_or(0);
    };
    std::vector<std::thread> threads;
    for (int writer = 0; writer < writers; ++writer) {
        threads.emplace_back([&, writer] {
            for (int round = 1; round <= rounds; ++round) {
                store.setObject(QString::number(writer), round);
                if (!store.synchronize() || count(UbiquitousKeyValueStore(path), writer) != round) ++faults;
            }
        });
    }
    std::thread reader([&] {
        std::vector<qint64> seen(writers, 0);
        while (!done) {
            for (int writer = 0; writer < writers; ++writer) {
                const qint64 now = count(store, writer);
                if (now < seen[static_cast<std::size_t>(writer)]) ++faults;
                seen[static_cast<std::size_t>(writer)] = now;
            }
        }
    });
    for (auto& thread : threads)
        thread.join();
    done = true;
    reader.join();
    EXPECT_EQ(faults, 0);
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files), QStringList{QStringLiteral("settings.json")});
}

} // namespace
