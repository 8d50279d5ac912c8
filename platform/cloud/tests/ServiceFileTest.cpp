#include "platform/cloud/ServiceFile.h"

#include "platform/cloud/tests/TemporaryFile.h"

using namespace platform;

namespace {

const ServerAccount server{QStringLiteral("db.example.org"), 6543,
                           QStringLiteral("library"),        QStringLiteral("ann"),
                           QStringLiteral("verify-full"),    QStringLiteral("/ca.pem")};
const QByteArray serverLines = "host=db.example.org\nport=6543\ndbname=library\nuser=ann\n"
                               "sslmode=verify-full\nsslrootcert=/ca.pem\n";

AccountResult signedIn(const CloudAccount& account) {
    return account;
}

class ServiceFileTest : public TemporaryFile {
protected:
    AccountResult read(const QByteArray& bytes) {
        put(bytes);
        return file.account();
    }

    ServiceFile file{path};
};

TEST_F(ServiceFileTest, WithoutFileOrSectionThereIsNoAccount) {
    EXPECT_EQ(file.account(), AccountResult());
    for (const char* bytes :
         {"", "# [quillet]\n", "[other]\nhost=h\n", "[quillet2]\nhost=h\n", "host=h\ndbname=d\nuser=u"})
        EXPECT_EQ(read(bytes), AccountResult()) << bytes;
}

TEST_F(ServiceFileTest, ReadsAsLibpqDoes) {
    EXPECT_EQ(read("[quillet]\n" + serverLines), signedIn(server));
    const ServerAccount plain{QStringLiteral("h"), 5432, QStringLiteral("d"), QStringLiteral("u=v"), {}, {}};
    EXPECT_EQ(read("junk\n[a]\nhost=x\n \t[quillet] rest\r\n\n# c\n  host=h \t\r\nuser=u=v\ndbname=d\n"
                   "connect_timeout=3\nhost=second\n[quillet]\nport=1\n"),
              signedIn(plain));
    EXPECT_EQ(read("[quillet]\ndbname=sqlite:/shared/my cloud"),
              signedIn(FileAccount{QStringLiteral("/shared/my cloud")}));
}

TEST_F(ServiceFileTest, AnIncompleteSectionIsAnErrorThatSaysWhatIsWrong) {
    const std::pair<const char*, const char*> cases[] = {
        {"[quillet]\n", "host, dbname, user"},
        {"[quillet]\nhost=h\nuser=u\n", "dbname"},
        {"[quillet]\nhost =h\ndbname=d\nuser=u\n", "no host"},
        {"[quillet]\nhost=h\ndbname=d\nuser=u\nport=70000\n", "port"},
        {"[quillet]\nhost=h\ndbname=d\nuser=u\nport=-1\n", "port"},
        {"[quillet]\nhost=h\nwhat\n", "line 3"},
        {"[quillet]\n=h\n", "line 2"},
        {"[quillet]\ndbname=sqlite:relative\n", "absolute"},
    };
    for (const auto& [bytes, message] : cases) {
        const auto account = read(bytes);
        ASSERT_FALSE(account) << bytes;
        EXPECT_EQ(account.error().code, CKError::Code::InvalidArguments);
        EXPECT_TRUE(account.error().message.contains(QString::fromLatin1(message))) << bytes;
    }
}

TEST_F(ServiceFileTest, HostileFilesAreErrorsOrNothing) {
    EXPECT_EQ(read(QByteArray("\0\0[quillet\0]\n", 13)), AccountResult());
    EXPECT_FALSE(read("[quillet]\n" + QByteArray(2'000'000, '=')));
    EXPECT_FALSE(ServiceFile(directory.path()).account());
    EXPECT_FALSE(ServiceFile(QStringLiteral("/dev/zero")).account());
    EXPECT_TRUE(read("[quillet]\nhost=\xff\xfe\ndbname=d\nuser=u\n"));
}

TEST_F(ServiceFileTest, WritingKeepsEveryForeignByte) {
    put("# mine\r\n[other]\nhost=x");
    ASSERT_TRUE(file.write(server));
    EXPECT_EQ(bytes(), "# mine\r\n[other]\nhost=x\n[quillet]\n" + serverLines);
    EXPECT_EQ(file.account(), signedIn(server));
    EXPECT_EQ(mode(), 0600);

    put("[a]\nhost=x\n[quillet]\n# why\nhost=old\n\nconnect_timeout=9\nhostaddr=1.2.3.4\nport=1\n\n# "
        "b's\n[b]\nport=2\n");
    ASSERT_TRUE(file.write(server));
    EXPECT_EQ(bytes(), "[a]\nhost=x\n[quillet]\n" + serverLines +
                           "# why\n\nconnect_timeout=9\n\n# b's\n[b]\nport=2\n");
    ASSERT_TRUE(file.write(FileAccount{QStringLiteral("/shared/q")}));
    EXPECT_EQ(bytes(), "[a]\nhost=x\n[quillet]\ndbname=sqlite:/shared/q\n# why\n\nconnect_timeout=9\n\n"
                       "# b's\n[b]\nport=2\n");
}

TEST_F(ServiceFileTest, RemovingTakesEverySectionOfTheNameAndNothingElse) {
    put("# top\n[quillet]\n# in\nhost=h\nport=1\n\n# b's\n[b]\nhost=x\n[quillet]\nhost=second\n");
    ASSERT_TRUE(file.remove());
    EXPECT_EQ(bytes(), "# top\n\n# b's\n[b]\nhost=x\n");
    EXPECT_EQ(file.account(), AccountResult());
    EXPECT_EQ(mode(), 0600);
}

TEST_F(ServiceFileTest, SignedOutOfNothingMakesNoFile) {
    ASSERT_TRUE(file.remove());
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(ServiceFileTest, WhatALineCannotHoldIsNotWritten) {
    put("[other]\n");
    for (const char* host : {"h\nport=1", "h\r", " h", "h "}) {
        auto account = server;
        account.host = QString::fromLatin1(host);
        EXPECT_FALSE(file.write(account)) << host;
    }
    EXPECT_FALSE(file.write(FileAccount{QStringLiteral("/a") + QChar(0xD800)}));
    EXPECT_EQ(bytes(), "[other]\n");
}

TEST_F(ServiceFileTest, AFolderThatCannotBeMadeIsAnError) {
    put("in the way");
    EXPECT_FALSE(ServiceFile(path + QStringLiteral("/below")).write(server));
}

} // namespace
