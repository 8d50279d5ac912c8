#include "platform/screens/sharing/OpenWith.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QUrl>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusUnixFileDescriptor>
#include <QtGui/QDesktopServices>

namespace platform {

namespace {

void openByItsProgram(const QString& path, const std::function<void()>& failed) {
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path))) failed();
}

} // namespace

void openWith(const QString& path, std::function<void()> failed) {
    QFile file(path);
    const auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !file.open(QIODevice::ReadOnly)) {
        openByItsProgram(path, failed);
        return;
    }
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.OpenURI"), QStringLiteral("OpenFile"));
    call.setArguments({QString(), QVariant::fromValue(QDBusUnixFileDescriptor(file.handle())),
                       QVariantMap{{QStringLiteral("ask"), true}}});
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), qApp);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, qApp,
                     [watcher, path, failed = std::move(failed)] {
                         watcher->deleteLater();
                         if (watcher->isError()) openByItsProgram(path, failed);
                     });
}

} // namespace platform
