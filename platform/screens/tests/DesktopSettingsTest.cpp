#include "platform/screens/appearance/DesktopSettings.h"

#include "platform/screens/tests/PrivateBus.h"

#include <QtCore/QThread>
#include <QtDBus/QDBusMessage>
#include <QtTest/QTest>
#include <gtest/gtest.h>

using namespace platform;

namespace {

QString q(const char* text) {
    return QString::fromUtf8(text);
}

const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");

// Answers on a thread of its own, since who asks waits.
class FakePortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    QVariantMap settings;

public Q_SLOTS:

    void Read(const QString& group, const QString& key, const QDBusMessage& message) {
        message.setDelayedReply(true);
        const auto connection = QDBusConnection(q("portal"));
        const auto value = settings.value(group + u' ' + key);
        if (value.isValid()) {
            const QVariant wrapped = QVariant::fromValue(QDBusVariant(value));
            connection.send(message.createReply(QVariant::fromValue(QDBusVariant(wrapped))));
        } else {
            connection.send(message.createErrorReply(q("org.freedesktop.portal.Error.NotFound"), q("no")));
        }
    }
};

class DesktopSettingsTest : public ::testing::Test {
protected:
    ~DesktopSettingsTest() override {
        thread.quit();
        thread.wait();
        QDBusConnection::disconnectFromBus(q("portal"));
        QDBusConnection::disconnectFromBus(q("program"));
    }

    void startPortal(const QVariantMap& settings) {
        portal.settings = settings;
        auto bus = connected("portal");
        portal.moveToThread(&thread);
        thread.start();
        EXPECT_TRUE(bus.registerObject(portalPath, &portal, QDBusConnection::ExportAllSlots));
        EXPECT_TRUE(bus.registerService(q("org.freedesktop.portal.Desktop")));
    }

    void change(const char* group, const char* key, const QVariant& value) {
        auto signal = QDBusMessage::createSignal(portalPath, settingsInterface, q("SettingChanged"));
        signal << q(group) << q(key) << QVariant::fromValue(QDBusVariant(value));
        QDBusConnection(q("portal")).send(signal);
    }

    QDBusConnection connected(const char* name) {
        return QDBusConnection::connectToBus(daemon.address, q(name));
    }

    PrivateBus daemon;
    QThread thread;
    FakePortal portal;
};

TEST_F(DesktopSettingsTest, ADesktopWithoutAPortalIsLightAndMoves) {
    DesktopSettings settings(connected("program"));
    EXPECT_EQ(settings.appearance(), Appearance::Light);
    EXPECT_FALSE(settings.reducesMotion());
    DesktopSettings withoutBus(QDBusConnection::connectToBus(q("unix:path=/nowhere"), q("nowhere")));
    EXPECT_EQ(withoutBus.appearance(), Appearance::Light);
}

TEST_F(DesktopSettingsTest, ThePortalIsAskedAndFollowed) {
    startPortal({{q("org.freedesktop.appearance color-scheme"), 1u},
                 {q("org.gnome.desktop.interface enable-animations"), false}});
    DesktopSettings settings(connected("program"));
    EXPECT_EQ(settings.appearance(), Appearance::Dark);
    EXPECT_TRUE(settings.reducesMotion());

    change("org.freedesktop.appearance", "color-scheme", 2u);
    EXPECT_TRUE(QTest::qWaitFor([&] { return settings.appearance() == Appearance::Light; }));
    change("org.gnome.desktop.interface", "enable-animations", true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !settings.reducesMotion(); }));
    // The newer word for the same counts more.
    change("org.freedesktop.appearance", "reduced-motion", 1u);
    EXPECT_TRUE(QTest::qWaitFor([&] { return settings.reducesMotion(); }));
}

} // namespace

#include "DesktopSettingsTest.moc"
