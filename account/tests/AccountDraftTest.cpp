#include "account/AccountDraft.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

using namespace account;
using platform::CloudAccount;
using platform::FileAccount;
using platform::ServerAccount;

namespace {

class AccountDraftTest : public ::testing::Test {
protected:
    void SetUp() override {
        QFile file(authority);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    AccountDraft server(const char* host) const {
        AccountDraft draft;
        draft.host = QString::fromLatin1(host);
        draft.database = QStringLiteral("d");
        draft.user = QStringLiteral("u");
        return draft;
    }

    QTemporaryDir directory;
    QString authority = directory.filePath(QStringLiteral("ca.pem"));
};

TEST_F(AccountDraftTest, AServerElsewhereNeedsAFileOfAuthoritiesAndIsVerified) {
    auto draft = server("db.example.org");
    EXPECT_TRUE(draft.complaint().value_or(QString()).contains(QStringLiteral("db.example.org")));
    draft.rootCertificate = authority + QStringLiteral("x");
    EXPECT_TRUE(draft.complaint());
    draft.rootCertificate = authority;
    EXPECT_EQ(draft.complaint(), std::nullopt);
    EXPECT_EQ(draft.account(), CloudAccount(ServerAccount{draft.host, 5432, draft.database, draft.user,
                                                          QStringLiteral("verify-full"), authority}));
    EXPECT_EQ(AccountDraft::from(draft.account()), draft);
}

TEST_F(AccountDraftTest, AServerOnThisMachineNeedsNone) {
    const auto draft = server("localhost");
    EXPECT_EQ(draft.complaint(), std::nullopt);
    EXPECT_EQ(std::get<ServerAccount>(draft.account()).sslMode, QString());
    auto account = std::get<ServerAccount>(draft.account());
    account.sslMode = QStringLiteral("require");
    EXPECT_EQ(AccountDraft::from(account).account(), CloudAccount(account));
    auto elsewhere = AccountDraft::from(account);
    elsewhere.host = QStringLiteral("db.example.org");
    EXPECT_EQ(std::get<ServerAccount>(elsewhere.account()).sslMode, QStringLiteral("verify-full"));
}

TEST_F(AccountDraftTest, WhatIsMissingIsSaid) {
    const auto without = [this](QString AccountDraft::* field) {
        auto draft = server("localhost");
        draft.*field = QString();
        return draft.complaint();
    };
    for (const auto field :
         {&AccountDraft::host, &AccountDraft::port, &AccountDraft::database, &AccountDraft::user})
        EXPECT_TRUE(without(field));
    auto draft = server("localhost");
    draft.port = QStringLiteral("65536");
    EXPECT_TRUE(draft.complaint());
    EXPECT_TRUE(server("/run/postgresql,/tmp").complaint()) << "one host, and no list of them";
}

TEST_F(AccountDraftTest, AFileIsAWholePathInAFolderThatIsThere) {
    AccountDraft draft;
    draft.kind = AccountDraft::Kind::File;
    for (const QString& path : {QString(), QStringLiteral("relative"), directory.path(),
                                directory.filePath(QStringLiteral("missing/q"))}) {
        draft.path = path;
        EXPECT_TRUE(draft.complaint()) << path.toStdString();
    }
    draft.path = directory.filePath(QStringLiteral("q"));
    EXPECT_EQ(draft.complaint(), std::nullopt);
    EXPECT_EQ(draft.account(), CloudAccount(FileAccount{draft.path}));
    EXPECT_EQ(AccountDraft::from(draft.account()), draft);
}

} // namespace
