#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace platform {

// A mail for the user to finish and to send. Plain text. Programs that send mail get it by their command
// line, which bears some 40 thousand characters: what is longer goes into an attachment.
struct MailMessage {
    QString recipient; // may be empty
    QString subject;
    QString body;
    QStringList attachments{}; // absolute paths; the files outlive the user's work on the mail
};

// Whether the desktop knows a program that sends mail: what it answered last. Each call asks it anew without
// waiting for the answer; until the first one it is taken to know one. Main thread.
bool canSendMail();

// Opens the message in the desktop's mail program, once the desktop has answered whether it knows one, and
// returns at once. Nothing happens where there is none. Attachments need `xdg-email`; without it they are
// left out. Main thread.
void composeMail(const MailMessage& message);

} // namespace platform
