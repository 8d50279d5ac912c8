#include "platform/mirror/KeyValueZone.h"

#include <QtCore/QCborArray>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

#include <optional>

namespace platform {

namespace {

const QString theme = QStringLiteral("codeTheme");
const QString size = QStringLiteral("EditorFontSize");
const QString settingsFile = QStringLiteral("Settings.json");
const QString knownFile = QStringLiteral("Settings.known.json");

// The settings of one device, and its zone as the mirror's thread drives it.
class Device {
public:
    Device() { start(); }

    void start() {
        zone.reset();
        values.emplace(folder.filePath(settingsFile));
        zone = std::make_unique<KeyValueZone>(QStringLiteral("Settings"), *values, [this] { return wall; });
        storage = zone->open().value();
    }

    void gather() { ASSERT_TRUE(zone->gather()); }

    // As a sync leaves it: what the other knows is in the state, but not in the settings yet.
    void takeFrom(Device& other) {
        const auto theirs = other.object();
        ASSERT_TRUE(theirs);
        auto mine = object().value_or(MirroredObject());
        mine.state.join(theirs->state);
        mine.change = 0;
        ASSERT_TRUE(storage->transaction([&] { return storage->put(other.id(), mine); }));
    }

    std::optional<MirroredObject> object() {
        std::optional<MirroredObject> found;
        const auto read = storage->transaction([&]() -> StoreResult<void> {
            const auto ids = storage->all();
            if (!ids || ids->empty()) return {};
            found = storage->object(ids->front()).value();
            return {};
        });
        EXPECT_TRUE(read);
        return found;
    }

    QUuid id() {
        QUuid found;
        EXPECT_TRUE(storage->transaction([&]() -> StoreResult<void> {
            found = storage->all().value().front();
            return {};
        }));
        return found;
    }

    bool hasNews() { return object().value().change > 0; }

    QString themeNow() const { return values->string(theme).value_or(QString()); }

    // A file as it was, as a crash ahead of its writing leaves it.
    QByteArray read(const QString& name) const {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("{}");
    }

    void putBack(const QString& name, const QByteArray& bytes) const {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    WallTime wall = 1'700'000'000'000;
    QTemporaryDir folder;
    std::optional<UbiquitousKeyValueStore> values;
    std::unique_ptr<KeyValueZone> zone;
    MirrorStorage* storage = nullptr;
};

TEST(KeyValueZone, OfEachKeyTheLaterSettingWinsAndOnlyNewsGoOut) {
    Device first;
    Device second;
    first.values->setString(theme, QStringLiteral("dark"));
    first.gather();
    EXPECT_TRUE(first.hasNews());
    second.wall += 1'000;
    second.values->setString(theme, QStringLiteral("light"));
    second.values->setObject(size, 12);
    second.gather();
    first.takeFrom(second);
    second.takeFrom(first);
    first.gather();
    second.gather();
    for (Device* device : {&first, &second}) {
        EXPECT_EQ(device->themeNow(), QStringLiteral("light"));
        EXPECT_EQ(device->values->integer(size), 12);
        EXPECT_FALSE(device->hasNews());
    }
    first.values->setObject(theme, {}); // away again
    first.gather();
    second.takeFrom(first);
    second.gather();
    EXPECT_TRUE(second.values->object(theme).isNull());
}

TEST(KeyValueZone, WhatIsSetWhileNewsArriveIsALaterChange) {
    Device first;
    Device second;
    first.values->setString(theme, QStringLiteral("dark"));
    first.gather();
    second.takeFrom(first);
    second.values->setString(theme, QStringLiteral("light")); // before the news are handed on
    second.gather();
    EXPECT_TRUE(second.hasNews());
    first.takeFrom(second);
    first.gather();
    EXPECT_EQ(first.themeNow(), QStringLiteral("light"));
}

TEST(KeyValueZone, AValueThatIsNoPropertyListIsLeftAlone) {
    Device first;
    Device second;
    first.values->setString(theme, QStringLiteral("dark"));
    first.gather();
    second.takeFrom(first);
    auto object = second.object().value();
    QCborValue deep(1);
    for (int level = 0; level < 600; ++level)
        deep = QCborArray{deep};
    object.state.write(size, {HybridClock::fromWall(second.wall), QUuid::createUuid()}, deep);
    const QUuid id = second.id();
    ASSERT_TRUE(second.storage->transaction([&] { return second.storage->put(id, object); }));
    second.gather();
    EXPECT_EQ(second.themeNow(), QStringLiteral("dark"));
    EXPECT_TRUE(second.values->object(size).isNull());
}

TEST(KeyValueZone, ACrashBetweenItsFilesChangesNothing) {
    for (const QStringList& unwritten : {QStringList{knownFile}, QStringList{settingsFile, knownFile}}) {
        Device first;
        Device second;
        for (Device* device : {&first, &second}) {
            device->values->setString(theme, QStringLiteral("old"));
            device->gather();
        }
        QMap<QString, QByteArray> before;
        for (const QString& name : unwritten)
            before.insert(name, second.read(name));
        first.wall += 1'000;
        first.values->setString(theme, QStringLiteral("new"));
        first.gather();
        second.takeFrom(first);
        second.gather();
        ASSERT_EQ(second.themeNow(), QStringLiteral("new"));
        for (const QString& name : unwritten)
            second.putBack(name, before.value(name));
        second.start();
        second.gather();
        EXPECT_EQ(second.themeNow(), QStringLiteral("new"));
        EXPECT_FALSE(second.hasNews()) << "what came from elsewhere was taken for a change of this device";
    }
}

} // namespace

} // namespace platform
