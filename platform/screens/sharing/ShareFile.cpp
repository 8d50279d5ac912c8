#include "platform/screens/sharing/ShareFile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QSaveFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImageWriter>

namespace platform {

namespace {

constexpr double dotsPerMeter = 96 / 0.0254; // at scale 1

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

// A PNG has no scale, but a resolution, from which others take how large it was on the screen.
bool write(const QImage& image, QIODevice& file, QString& error) {
    QImage picture = image;
    const int resolution = qRound(image.devicePixelRatio() * dotsPerMeter);
    picture.setDotsPerMeterX(resolution);
    picture.setDotsPerMeterY(resolution);
    QImageWriter writer(&file, "PNG");
    if (writer.write(picture)) return true;
    error = writer.errorString();
    return false;
}

} // namespace

std::expected<void, QString> writeItem(const ShareItem& item, const QString& path) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return std::unexpected(file.errorString());
    if (const auto* image = item.image()) {
        QString error;
        if (!write(*image, file, error)) return std::unexpected(error);
    } else {
        file.write(item.text()->toUtf8()); // an error is found at the commit
    }
    if (file.commit()) return {};
    return std::unexpected(file.errorString());
}

std::expected<QString, QString> temporaryFileOf(const ShareItem& item) {
    if (!folder().isValid()) return std::unexpected(folder().errorString());
    // Two of one name are two files.
    QTemporaryDir one(folder().filePath(QStringLiteral("XXXXXX")));
    if (!one.isValid()) return std::unexpected(one.errorString());
    one.setAutoRemove(false);
    const QString path = one.filePath(item.fileName());
    if (auto written = writeItem(item, path); !written) return std::unexpected(written.error());
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    return path;
}

} // namespace platform
