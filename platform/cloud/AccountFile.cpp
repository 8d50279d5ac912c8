#include "platform/cloud/AccountFile.h"

#include "platform/foundation/DurableFile.h"
#include "platform/foundation/GeneralizedUtf8.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>

namespace platform {

namespace {

constexpr qsizetype mostBytes = 1'000'000;

} // namespace

CloudResult<QByteArray> readAccountFile(const QString& path) {
    QFile file(path);
    if (!file.exists()) return QByteArray();
    // Opening a pipe would wait for its other end.
    if (!QFileInfo(file).isFile()) return std::unexpected(accountError(path + QStringLiteral(" is no file")));
    if (!file.open(QIODevice::ReadOnly))
        return std::unexpected(
            accountError(QStringLiteral("cannot read %1: %2").arg(path, file.errorString())));
    QByteArray bytes = file.read(mostBytes + 1);
    if (bytes.size() > mostBytes)
        return std::unexpected(accountError(path + QStringLiteral(" is too large")));
    return bytes;
}

CloudResult<void> writeAccountFile(const QString& path, const QByteArray& bytes) {
    if (!replaceDurably(path, bytes, Readers::OwnerOnly))
        return std::unexpected(accountError(QStringLiteral("cannot write ") + path));
    return {};
}

QList<QByteArray> linesOf(const QByteArray& bytes) {
    QList<QByteArray> lines;
    for (qsizetype start = 0; start < bytes.size();) {
        const qsizetype newline = bytes.indexOf('\n', start);
        const qsizetype limit = newline < 0 ? bytes.size() : newline + 1;
        lines += bytes.sliced(start, limit - start);
        start = limit;
    }
    return lines;
}

void insertLine(QList<QByteArray>& lines, qsizetype index, const QByteArray& line) {
    if (index > 0 && !lines[index - 1].endsWith('\n')) lines[index - 1] += '\n';
    lines.insert(index, line + '\n');
}

bool fitsInALine(const QString& text) {
    return isPlainText(text) && std::ranges::none_of(text, [](QChar unit) {
               return unit.unicode() < ' ' || unit.unicode() == 127;
           });
}

CKError accountError(const QString& message) {
    return {CKError::Code::InvalidArguments, message};
}

QString accountFilePath(const char* variable, const QString& name) {
    const QString path = QFile::decodeName(qgetenv(variable));
    return path.isEmpty() ? QDir::home().filePath(name) : path;
}

} // namespace platform
