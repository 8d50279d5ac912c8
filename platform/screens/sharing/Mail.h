#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace platform {

// A mail for the user to finish and to send. Plain text.
struct MailMessage {
    QString recipient; // may be empty
    QString subject;
    QString body;
    QStringList attachments{}; // absolute paths; the files outlive the user's work on the mail
};

// Whether the desktop knows a program that sends mail.
bool canSendMail();

// Opens the message in the desktop's mail program and returns at once. Nothing happens where there is none.
// Main thread.
void composeMail(const MailMessage& message);

} // namespace platform
