#include "platform/screens/sharing/Mail.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>

#include <algorithm>

namespace platform {

namespace {

QString mailProgram() {
    return QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
}

// Whether one of the desktop's lists names a program for it.
bool isHandled(const QString& path) {
    QFile list(path);
    if (!list.open(QIODevice::ReadOnly)) return false;
    while (!list.atEnd()) {
        const QByteArray line = list.readLine().trimmed();
        if (line.startsWith("x-scheme-handler/mailto=") && !line.endsWith('=')) return true;
    }
    return false;
}

bool hasHandler() {
    QStringList lists =
        QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, QStringLiteral("mimeapps.list"));
    for (const auto* name : {"mimeapps.list", "mimeinfo.cache", "defaults.list"})
        lists += QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
                                           QStringLiteral("applications/") + QString::fromLatin1(name));
    return std::ranges::any_of(lists, isHandled);
}

// What begins with a hyphen would be taken for an option.
QString asArgument(const QString& text) {
    return text.startsWith(u'-') ? u' ' + text : text;
}

} // namespace

bool canSendMail() {
    return !mailProgram().isEmpty() && hasHandler();
}

void composeMail(const MailMessage& message) {
    if (!canSendMail()) return;
    QStringList arguments{QStringLiteral("--utf8"), QStringLiteral("--subject"), asArgument(message.subject),
                          QStringLiteral("--body"), asArgument(message.body)};
    for (const QString& path : message.attachments)
        arguments << QStringLiteral("--attach") << path;
    if (!message.recipient.isEmpty()) arguments << message.recipient;
    QProcess::startDetached(mailProgram(), arguments);
}

} // namespace platform
