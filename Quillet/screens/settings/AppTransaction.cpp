#include "Quillet/screens/settings/AppTransaction.h"

#include "platform/foundation/MainQueue.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QStandardPaths>

#include <unistd.h>

namespace quillet {

namespace {

constexpr qint64 mostBytes = 10'000;
const QString bundle = QStringLiteral("quillet");

bool isTrusted(const QString& path) {
    const QFileInfo file(path);
    const bool isOurs = file.ownerId() == 0 || file.ownerId() == getuid();
    return file.isFile() && isOurs && !(file.permissions() & (QFile::WriteGroup | QFile::WriteOther));
}

QString digestOf(const QString& version) {
    const QByteArray signedText = (bundle + u'\n' + version).toUtf8();
    return QString::fromLatin1(QCryptographicHash::hash(signedText, QCryptographicHash::Sha256).toHex());
}

} // namespace

void AppTransaction::shared(std::function<void(const std::optional<AppTransaction>&)> done) {
    platform::dispatchToBackground([done = std::move(done)] {
        const QString path = QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                                    QStringLiteral("quillet/receipt.json"));
        auto transaction = path.isEmpty() ? std::nullopt : read(path);
        platform::dispatchToMain([done, transaction = std::move(transaction)] { done(transaction); });
    });
}

std::optional<AppTransaction> AppTransaction::read(const QString& path) {
    QFile file(path);
    if (!isTrusted(path) || !file.open(QIODevice::ReadOnly)) return std::nullopt;
    const auto receipt = QJsonDocument::fromJson(file.read(mostBytes)).object();
    const QString version = receipt.value(QStringLiteral("originalAppVersion")).toString();
    if (version.isEmpty() || receipt.value(QStringLiteral("bundle")).toString() != bundle)
        return std::nullopt;
    if (receipt.value(QStringLiteral("digest")).toString() != digestOf(version)) return std::nullopt;
    return AppTransaction(version);
}

} // namespace quillet
