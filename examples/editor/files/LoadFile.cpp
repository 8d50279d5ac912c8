#include "examples/editor/files/LoadFile.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <optional>
#include <sys/stat.h>

namespace tessarine::editor {

namespace {

constexpr int attempts = 3;

std::unexpected<LoadError> error(LoadError::Kind kind, const QString& path, const QString& reason) {
    return std::unexpected(LoadError{
        kind, QStringLiteral("“%1” cannot be opened: %2").arg(QDir::toNativeSeparators(path), reason)});
}

std::optional<FileIdentity> identity(const QFile& file) {
    struct stat status{};
    if (::fstat(file.handle(), &status) != 0) return std::nullopt;
    return FileIdentity::of(status);
}

// Before it is opened: opening a pipe would wait for whoever writes to it.
std::optional<LoadError> complaint(const QString& path, std::int64_t sizeLimit) {
    const QFileInfo info(path);
    const auto complain = [&path](LoadError::Kind kind, const QString& reason) {
        return std::optional(error(kind, path, reason).error());
    };
    if (!info.exists()) return complain(LoadError::Kind::notFound, QStringLiteral("There is no such file."));
    if (info.isDir()) return complain(LoadError::Kind::notAFile, QStringLiteral("It is a folder."));
    if (!info.isFile())
        return complain(LoadError::Kind::notAFile, QStringLiteral("It is a device or a pipe."));
    if (info.size() >= sizeLimit)
        return complain(LoadError::Kind::tooLarge,
                        QStringLiteral("It has %1 MB; the editor opens files below %2 MB.")
                            .arg(info.size() / 1'000'000)
                            .arg(sizeLimit / 1'000'000));
    return std::nullopt;
}

std::expected<LoadedFile, LoadError> decode(const QString& path, const QByteArray& bytes,
                                            const FileIdentity& identity) {
    auto decoded =
        decodeFile(std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
    if (!decoded)
        return error(LoadError::Kind::notText, path,
                     QStringLiteral("It is no text, for it has characters of the value zero."));
    return LoadedFile{std::move(*decoded), identity};
}

} // namespace

std::expected<LoadedFile, LoadError> loadFile(const QString& path, std::int64_t sizeLimit) {
    if (auto found = complaint(path, sizeLimit)) return std::unexpected(std::move(*found));
    for (int attempt = 0; attempt < attempts; ++attempt) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return error(LoadError::Kind::failed, path, file.errorString() + QStringLiteral("."));
        const auto before = identity(file);
        // No byte more than the limit, whatever a file grows to meanwhile.
        const QByteArray bytes = file.read(sizeLimit);
        if (file.error() != QFileDevice::NoError)
            return error(LoadError::Kind::failed, path, file.errorString() + QStringLiteral("."));
        if (before && before == identity(file) && before->size == bytes.size())
            return decode(path, bytes, *before);
    }
    return error(LoadError::Kind::failed, path, QStringLiteral("Another program is writing to it."));
}

} // namespace tessarine::editor
