#include "platform/screens/sharing/Mail.h"

#include "platform/screens/sharing/MailHandlerQuery.h"

#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>

namespace platform {

namespace {

QString encoded(QString text) {
    text.replace(QStringLiteral("\n"), QStringLiteral("\r\n")); // how a mail's lines end
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

// Encoded as a URL, an address cannot be taken for an option.
QString mailtoOf(const QString& recipient) {
    return QStringLiteral("mailto:") + QString::fromLatin1(QUrl::toPercentEncoding(recipient, "@"));
}

QUrl urlOf(const MailMessage& message) {
    QStringList fields;
    if (!message.subject.isEmpty()) fields += QStringLiteral("subject=") + encoded(message.subject);
    if (!message.body.isEmpty()) fields += QStringLiteral("body=") + encoded(message.body);
    QString url = mailtoOf(message.recipient);
    if (!fields.isEmpty()) url += u'?' + fields.join(u'&');
    return QUrl(url, QUrl::StrictMode);
}

// An option takes what follows it whatever it starts with, but refuses an empty text.
QStringList argumentsOf(const MailMessage& message) {
    QStringList arguments{QStringLiteral("--utf8")};
    if (!message.subject.isEmpty()) arguments << QStringLiteral("--subject") << message.subject;
    if (!message.body.isEmpty()) arguments << QStringLiteral("--body") << message.body;
    for (const QString& path : message.attachments)
        arguments << QStringLiteral("--attach") << path;
    if (!message.recipient.isEmpty()) arguments << mailtoOf(message.recipient);
    return arguments;
}

void open(const MailMessage& message) {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
    if (program.isEmpty())
        QDesktopServices::openUrl(urlOf(message));
    else
        QProcess::startDetached(program, argumentsOf(message));
}

} // namespace

bool canSendMail() {
    auto& query = MailHandlerQuery::shared();
    query.ask();
    return query.lastAnswer();
}

void composeMail(const MailMessage& message) {
    MailHandlerQuery::shared().ask([message](bool isKnown) {
        if (isKnown) open(message);
    });
}

} // namespace platform
