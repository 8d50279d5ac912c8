#include "Quillet/screens/settings/AppTransaction.h"

#include "platform/foundation/MainQueue.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QStandardPaths>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillet {

namespace {

constexpr qint64 mostBytes = 64 * 1024;

bool isTrustworthy(const struct stat& status) {
    return S_ISREG(status.st_mode) && status.st_size <= mostBytes &&
           (status.st_uid == 0 || status.st_uid == ::geteuid()) && !(status.st_mode & (S_IWGRP | S_IWOTH));
}

// Of the very file that was checked. A pipe in its place holds nobody up.
std::optional<QByteArray> trustworthyBytes(const QString& path) {
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) return std::nullopt;
    QFile file;
    struct stat status{};
    if (!file.open(descriptor, QFile::ReadOnly, QFile::AutoCloseHandle)) {
        ::close(descriptor);
        return std::nullopt;
    }
    if (::fstat(descriptor, &status) != 0 || !isTrustworthy(status)) return std::nullopt;
    return file.read(mostBytes);
}

QByteArray digestOf(QJsonObject receipt) {
    receipt.remove(QStringLiteral("sha256"));
    return QCryptographicHash::hash(QJsonDocument(receipt).toJson(QJsonDocument::Compact),
                                    QCryptographicHash::Sha256)
        .toHex();
}

std::optional<AppTransaction> firstVerified() {
    const QStringList receipts = QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
                                                           QStringLiteral("quillet/receipt.json"));
    for (const QString& path : receipts)
        if (auto transaction = AppTransaction::verified(path)) return transaction;
    return std::nullopt;
}

} // namespace

std::optional<AppTransaction> AppTransaction::verified(const QString& path) {
    const auto bytes = trustworthyBytes(path);
    if (!bytes) return std::nullopt;
    const QJsonObject receipt = QJsonDocument::fromJson(*bytes).object();
    const QString version = receipt.value(QStringLiteral("originalAppVersion")).toString();
    const QString digest = receipt.value(QStringLiteral("sha256")).toString();
    if (receipt.value(QStringLiteral("bundle")).toString() != QStringLiteral("quillet") ||
        version.isEmpty() || digest.toLatin1().toLower() != digestOf(receipt))
        return std::nullopt;
    return AppTransaction{version};
}

void AppTransaction::shared(Answer answer) {
    platform::dispatchToBackground([answer = std::move(answer)] {
        platform::dispatchToMain([answer, transaction = firstVerified()] { answer(transaction); });
    });
}

} // namespace quillet
