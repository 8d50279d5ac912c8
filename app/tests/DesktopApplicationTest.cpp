#include "app/DesktopApplication.h"

#include "platform/screens/tests/PrivateBus.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <QtTest/QTest>
#include <gtest/gtest.h>

using namespace quillet;

namespace {

QDBusConnection connectionTo(const platform::PrivateBus& bus, const char* name) {
    return QDBusConnection::connectToBus(bus.address, QString::fromLatin1(name));
}

// As another process would: through the bus, while the program's loop runs.
QDBusMessage call(const QDBusConnection& from, const QString& method, const QVariantList& arguments) {
    auto message = QDBusMessage::createMethodCall(QStringLiteral("app.quillet.Quillet"),
                                                  QStringLiteral("/app/quillet/Quillet"),
                                                  QStringLiteral("org.freedesktop.Application"), method);
    message.setArguments(arguments);
    const auto pending = from.asyncCall(message);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pending.isFinished(); }));
    return pending.reply();
}

} // namespace

TEST(DesktopApplication, TheDesktopBringsTheProgramToTheFront) {
    const platform::PrivateBus bus;
    const QDBusConnection desktop = connectionTo(bus, "desktop");
    int activations = 0;
    {
        const DesktopApplication application([&] { ++activations; }, connectionTo(bus, "program"));
        const QVariantMap platformData{{QStringLiteral("activation-token"), QStringLiteral("token")}};
        EXPECT_EQ(call(desktop, QStringLiteral("Activate"), {platformData}).type(),
                  QDBusMessage::ReplyMessage);
        EXPECT_EQ(activations, 1);
        EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token");
        const auto refused =
            call(desktop, QStringLiteral("Open"), {QStringList{QStringLiteral("file:///a")}, QVariantMap()});
        EXPECT_EQ(refused.errorName(), QStringLiteral("org.freedesktop.DBus.Error.NotSupported"));
    }
    EXPECT_EQ(call(desktop, QStringLiteral("Activate"), {QVariantMap()}).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(activations, 1);
}
