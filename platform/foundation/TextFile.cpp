#include "platform/foundation/TextFile.h"

#include <QtCore/QFile>
#include <QtCore/QStringDecoder>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr qint64 longest = 16 << 20; // bytes

std::expected<QByteArray, TextFileError> readBytes(const QString& path) {
    // Not blocking: a pipe without a writer would be waited for.
    const int descriptor =
        open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) return std::unexpected(TextFileError::Unreadable);
    struct stat status{};
    const bool isRegular = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    QFile file;
    if (!isRegular || !file.open(descriptor, QIODevice::ReadOnly, QFile::AutoCloseHandle)) {
        close(descriptor);
        return std::unexpected(isRegular ? TextFileError::Unreadable : TextFileError::NotAFile);
    }
    QByteArray bytes = file.read(longest + 1); // it may grow while it is read
    if (file.error() != QFileDevice::NoError) return std::unexpected(TextFileError::Unreadable);
    if (bytes.size() > longest) return std::unexpected(TextFileError::TooLarge);
    return bytes;
}

std::expected<QString, TextFileError> utf16(QByteArrayView bytes, QStringConverter::Encoding encoding) {
    QStringDecoder decoder(encoding);
    QString text = decoder.decode(bytes);
    if (bytes.size() % 2 != 0 || text.contains(QChar(u'\0'))) return std::unexpected(TextFileError::Binary);
    return text;
}

} // namespace

std::expected<QString, TextFileError> readTextFile(const QString& path) {
    const auto read = readBytes(path);
    if (!read) return std::unexpected(read.error());
    QByteArrayView bytes(*read);
    if (bytes.startsWith("\xFF\xFE")) return utf16(bytes.sliced(2), QStringConverter::Utf16LE);
    if (bytes.startsWith("\xFE\xFF")) return utf16(bytes.sliced(2), QStringConverter::Utf16BE);
    if (bytes.contains('\0')) return std::unexpected(TextFileError::Binary);
    if (bytes.startsWith("\xEF\xBB\xBF")) bytes = bytes.sliced(3);
    QString text = QString::fromUtf8(bytes);
    if (text.toUtf8() != bytes) text = QString::fromLatin1(bytes);
    return text;
}

} // namespace platform
