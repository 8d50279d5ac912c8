#pragma once

#include "platform/cloud/CloudAccount.h"

#include <optional>

namespace account {

// What a person has typed so far. A plain value.
struct AccountDraft {
    enum class Kind { Server, File };

    static AccountDraft from(const platform::CloudAccount& account);

    // The first thing that keeps this from being an account, as a sentence; nothing where it is one.
    std::optional<QString> complaint() const;
    // Whether the host is on another machine, so that a CA file is needed.
    bool needsAuthority() const;
    // Of a draft without a complaint.
    platform::CloudAccount account() const;

    bool operator==(const AccountDraft&) const = default;

    Kind kind = Kind::Server;
    QString host;
    QString port = QStringLiteral("5432");
    QString database;
    QString user;
    QString rootCertificate;
    QString sslMode; // of a server on this machine, as the account has it
    QString path;
};

} // namespace account
