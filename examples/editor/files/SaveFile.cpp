#include "examples/editor/files/SaveFile.h"

#include "examples/editor/files/FileEncoder.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace tessarine::editor {

namespace {

std::unexpected<SaveError> error(SaveError::Kind kind, const SaveRequest& request, const QString& reason) {
    return std::unexpected(SaveError{
        kind, QStringLiteral("“%1” was not saved: %2").arg(QDir::toNativeSeparators(request.path), reason),
        formatThatHolds(request.text)});
}

// A replaced file is another one to the system, so one that may not be written has to be asked for first.
bool isWriteProtected(const QString& path) {
    const QFileInfo info(path);
    return info.exists() && !info.isWritable();
}

std::expected<FileIdentity, SaveError> write(const SaveRequest& request) {
    QSaveFile file(request.path);
    if (!file.open(QIODevice::WriteOnly))
        return error(SaveError::Kind::failed, request, file.errorString() + QStringLiteral("."));
    bool isWritten = true;
    encodeFile(request.text, request.format, [&](std::span<const std::byte> bytes) {
        const auto size = static_cast<qint64>(bytes.size());
        isWritten = isWritten && file.write(reinterpret_cast<const char*>(bytes.data()), size) == size;
    });
    const QString writeError = file.errorString();
    if (!isWritten || !file.commit())
        return error(SaveError::Kind::failed, request,
                     (isWritten ? file.errorString() : writeError) + QStringLiteral("."));
    const auto written = fileIdentity(request.path);
    if (!written) return error(SaveError::Kind::failed, request, QStringLiteral("It was removed at once."));
    return *written;
}

} // namespace

std::expected<FileIdentity, SaveError> saveFile(const SaveRequest& request) {
    if (firstUnencodable(request.text, request.format.encoding))
        return error(
            SaveError::Kind::unencodable, request,
            QStringLiteral("%1 does not have all of its characters.").arg(displayName(request.format)));
    if (isWriteProtected(request.path))
        return error(SaveError::Kind::failed, request, QStringLiteral("It is write-protected."));
    const auto present = fileIdentity(request.path);
    if (request.overwrite == SaveRequest::Overwrite::known && present && present != request.known)
        return error(SaveError::Kind::changedOnDisk, request,
                     QStringLiteral("Another program has changed it."));
    return write(request);
}

} // namespace tessarine::editor
