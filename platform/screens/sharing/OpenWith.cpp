#include "platform/screens/sharing/OpenWith.h"

#include "platform/screens/sharing/PortalRequest.h"

#include <QtCore/QFile>
#include <QtCore/QUrl>
#include <QtDBus/QDBusUnixFileDescriptor>
#include <QtGui/QDesktopServices>

namespace platform {

void openWith(const QString& path, std::function<void()> failed) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return failed();
    PortalRequest::send(
        QDBusConnection::sessionBus(),
        {.interface = QStringLiteral("OpenURI"),
         .method = QStringLiteral("OpenFile"),
         // The descriptor is a copy, so the file may close.
         .arguments = {QString(), QVariant::fromValue(QDBusUnixFileDescriptor(file.handle()))},
         .options = {{QStringLiteral("ask"), true}}},
        [path, failed = std::move(failed)](PortalRequest::Outcome outcome, const QVariantMap& /*results*/) {
            if (outcome != PortalRequest::Outcome::Unavailable) return;
            if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path))) failed();
        });
}

} // namespace platform
