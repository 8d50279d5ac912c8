#include "platform/screens/sharing/Mail.h"

#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>

namespace platform {

namespace {

QString mailProgram() {
    return QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
}

} // namespace

bool canSendMail() {
    return !mailProgram().isEmpty();
}

void composeMail(const MailMessage& message) {
    const QString program = mailProgram();
    if (program.isEmpty()) return;
    QStringList arguments{QStringLiteral("--utf8"), QStringLiteral("--subject"), message.subject,
                          QStringLiteral("--body"), message.body};
    for (const QString& path : message.attachments)
        arguments << QStringLiteral("--attach") << path;
    if (!message.recipient.isEmpty()) arguments << message.recipient;
    QProcess::startDetached(program, arguments);
}

} // namespace platform
