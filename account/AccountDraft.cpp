#include "account/AccountDraft.h"

#include "platform/cloud/AccountRules.h"

#include <QtCore/QFileInfo>

namespace account {

using platform::CloudAccount;
using platform::FileAccount;
using platform::ServerAccount;

namespace {

bool isPort(const QString& text) {
    bool isNumber = false;
    const int port = text.toInt(&isNumber);
    return isNumber && port >= 1 && port <= 65535;
}

std::optional<QString> complaintOfServer(const AccountDraft& draft) {
    if (draft.host.isEmpty()) return QStringLiteral("Enter the name of the server.");
    if (!isPort(draft.port)) return QStringLiteral("The port is a number from 1 to 65535.");
    if (draft.database.isEmpty()) return QStringLiteral("Enter the name of the database.");
    if (draft.user.isEmpty()) return QStringLiteral("Enter the user's name.");
    if (draft.needsAuthority() && draft.rootCertificate.isEmpty())
        return QStringLiteral(
                   "%1 is another machine. Choose the CA file that its certificate is checked with.")
            .arg(draft.host);
    if (!draft.rootCertificate.isEmpty() && !QFileInfo(draft.rootCertificate).isFile())
        return QStringLiteral("The CA file is not there.");
    return platform::objectionTo(draft.account());
}

std::optional<QString> complaintOfFile(const AccountDraft& draft) {
    if (draft.path.isEmpty()) return QStringLiteral("Choose a file that all your machines can reach.");
    if (!draft.path.startsWith(QLatin1Char('/')))
        return QStringLiteral("Give the whole path of the file, from / on.");
    if (QFileInfo(draft.path).isDir()) return QStringLiteral("That is a folder. Name a file in it.");
    if (!QFileInfo(QFileInfo(draft.path).path()).isDir())
        return QStringLiteral("The folder of the file is not there.");
    return std::nullopt;
}

} // namespace

AccountDraft AccountDraft::from(const CloudAccount& account) {
    AccountDraft draft;
    if (const auto* file = std::get_if<FileAccount>(&account)) {
        draft.kind = Kind::File;
        draft.path = file->path;
        return draft;
    }
    const auto& server = std::get<ServerAccount>(account);
    draft.host = server.host;
    draft.port = QString::number(server.port);
    draft.database = server.database;
    draft.user = server.user;
    draft.rootCertificate = server.rootCertificate;
    if (platform::isLocalHost(server.host)) draft.sslMode = server.sslMode;
    return draft;
}

std::optional<QString> AccountDraft::complaint() const {
    return kind == Kind::Server ? complaintOfServer(*this) : complaintOfFile(*this);
}

bool AccountDraft::needsAuthority() const {
    return kind == Kind::Server && !host.isEmpty() && !platform::isLocalHost(host);
}

CloudAccount AccountDraft::account() const {
    if (kind == Kind::File) return FileAccount{path};
    const QString mode = needsAuthority() ? QStringLiteral("verify-full") : sslMode;
    return ServerAccount{host, port.toInt(), database, user, mode, rootCertificate};
}

} // namespace account
