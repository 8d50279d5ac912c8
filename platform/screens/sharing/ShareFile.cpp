#include "platform/screens/sharing/ShareFile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QSaveFile>
#include <QtCore/QTemporaryDir>

namespace platform {

namespace {

// Gone with the application object: other programs have what they wanted by then.
QTemporaryDir& folder() {
    static auto* folder = [] {
        auto made = std::make_unique<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/quillet-XXXXXX"));
        auto* raw = made.release();
        QObject::connect(qApp, &QObject::destroyed, [raw] { raw->remove(); });
        return raw;
    }();
    return *folder;
}

} // namespace

std::expected<void, QString> writeItem(const ShareItem& item, const QString& path) {
    QSaveFile file(path);
    bool isWritten = file.open(QIODevice::WriteOnly);
    if (isWritten) {
        if (const auto* image = std::get_if<QImage>(&item.content))
            isWritten = image->save(&file, "PNG");
        else
            isWritten = file.write(std::get<QString>(item.content).toUtf8()) >= 0;
    }
    if (isWritten && file.commit()) return {};
    return std::unexpected(file.errorString());
}

std::expected<QString, QString> temporaryFileOf(const ShareItem& item) {
    if (!folder().isValid()) return std::unexpected(folder().errorString());
    // Two of one name are two files.
    QTemporaryDir one(folder().filePath(QStringLiteral("XXXXXX")));
    one.setAutoRemove(false);
    const QString path = one.filePath(item.fileName());
    if (auto written = writeItem(item, path); !written) return std::unexpected(written.error());
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    return path;
}

} // namespace platform
