#pragma once

#include "platform/cloud/CKError.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>

namespace platform {

// What the two files of an account have in common: small, the user's own, edited by hand and by other
// programs, so that every byte that is not ours stays as it is.

// The bytes; empty where there is no file. Error where it cannot be read or is unreasonably large.
CloudResult<QByteArray> readAccountFile(const QString& path);
// Replaces the file as a whole, readable by its owner alone.
CloudResult<void> writeAccountFile(const QString& path, const QByteArray& bytes);

// Each with its line break, the last one perhaps without.
QList<QByteArray> linesOf(const QByteArray& bytes);
// Puts a line, which comes without its break, in front of the one at `index`.
void insertLine(QList<QByteArray>& lines, qsizetype index, const QByteArray& line);

// Whether a line of such a file can hold the text: no control characters, nothing that is no Unicode.
bool fitsInALine(const QString& text);

CKError accountError(const QString& message);

// The file an environment variable names, else `name` in the user's home.
QString accountFilePath(const char* variable, const QString& name);

} // namespace platform
