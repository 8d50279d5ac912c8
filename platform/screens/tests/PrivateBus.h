#pragma once

#include <QtCore/QProcess>
#include <QtDBus/QDBusConnection>
#include <gtest/gtest.h>

namespace platform {

// A message bus of a test's own, where nobody is but who connects to its address.
class PrivateBus {
public:
    PrivateBus() {
        m_daemon.start(
            QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
        EXPECT_TRUE(m_daemon.waitForReadyRead());
        address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }

    ~PrivateBus() {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    QString address;

private:
    QProcess m_daemon;
};

} // namespace platform
