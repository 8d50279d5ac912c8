#include "platform/cloud/PasswordFile.h"

#include "platform/cloud/tests/TemporaryFile.h"

using namespace platform;

namespace {

class PasswordFileTest : public TemporaryFile {
protected:
    static ServerAccount at(const char* host, const char* database = "d", const char* user = "u") {
        return {QString::fromUtf8(host), 5432, QString::fromUtf8(database), QString::fromUtf8(user), {}, {}};
    }

    PasswordFile file{path};
};

TEST_F(PasswordFileTest, AddsReplacesAndRemovesItsLineAlone) {
    ASSERT_TRUE(file.write(at("h"), QStringLiteral("one")));
    EXPECT_EQ(bytes(), "h:5432:d:u:one\n");
    EXPECT_EQ(mode(), 0600);

    put("# h:5432:d:u:comment\nh:5432:d:other:x\nh:5432:d:u:one\nshort:line\n\nh:5433:d:u:y");
    ASSERT_TRUE(file.write(at("h"), QStringLiteral("two")));
    EXPECT_EQ(bytes(), "# h:5432:d:u:comment\nh:5432:d:other:x\nh:5432:d:u:two\nshort:line\n\nh:5433:d:u:y");
    ASSERT_TRUE(file.remove(at("h")));
    EXPECT_EQ(bytes(), "# h:5432:d:u:comment\nh:5432:d:other:x\nshort:line\n\nh:5433:d:u:y");
    ASSERT_TRUE(file.write(at("new"), QStringLiteral("z")));
    EXPECT_TRUE(bytes().endsWith("h:5433:d:u:y\nnew:5432:d:u:z\n"));
}

TEST_F(PasswordFileTest, ALineThatMatchesMoreDoesNotHideIt) {
    put("a:*:*:*:p\n*:*:d:*:q\nh:5432:d:u:old\nh:5432:d:u:older\n");
    ASSERT_TRUE(file.write(at("h"), QStringLiteral("new")));
    EXPECT_EQ(bytes(), "a:*:*:*:p\nh:5432:d:u:new\n*:*:d:*:q\n");
    ASSERT_TRUE(file.remove(at("h")));
    EXPECT_EQ(bytes(), "a:*:*:*:p\n*:*:d:*:q\n");
}

TEST_F(PasswordFileTest, ColonsBackslashesAndStarsAreEscaped) {
    const auto account = at("fe80::1", "a\\b", "*");
    ASSERT_TRUE(file.write(account, QStringLiteral("p:q\\r ")));
    EXPECT_EQ(bytes(), "fe80\\:\\:1:5432:a\\\\b:\\*:p\\:q\\\\r \n");
    put("*:*:*:*:any\nfe\\80\\:\\:1:5432:a\\\\b:\\*:older spelling\n");
    ASSERT_TRUE(file.remove(account));
    EXPECT_EQ(bytes(), "*:*:*:*:any\n");
}

TEST_F(PasswordFileTest, TheDefaultSocketGoesByTheNameOfTheMachine) {
    ASSERT_TRUE(file.write(at("/var/run/postgresql"), QStringLiteral("p")));
    EXPECT_EQ(bytes(), "localhost:5432:d:u:p\n");
    EXPECT_TRUE(PasswordFile::shareLine(at("/var/run/postgresql"), at("localhost")));
    EXPECT_FALSE(PasswordFile::shareLine(at("/tmp"), at("localhost")));
    EXPECT_FALSE(PasswordFile::shareLine(at("localhost"), at("localhost", "d", "v")));
}

TEST_F(PasswordFileTest, WhatALineCannotHoldIsNotWritten) {
    put("keep\n");
    EXPECT_FALSE(file.write(at("h"), QStringLiteral("p\n*:*:*:*:evil")));
    EXPECT_FALSE(file.write(at("h"), QStringLiteral("p") + QChar(0)));
    EXPECT_FALSE(file.write(at("h\n"), QStringLiteral("p")));
    EXPECT_EQ(bytes(), "keep\n");
}

TEST_F(PasswordFileTest, HostileContentStays) {
    const QByteArray hostile("\\\n:::\\:\n\0\xff:1:2:3:4\nh:5432:d:u", 29);
    put(hostile);
    ASSERT_TRUE(file.remove(at("h")));
    EXPECT_EQ(bytes(), hostile);
    ASSERT_TRUE(file.write(at("h"), QStringLiteral("p")));
    EXPECT_EQ(bytes(), hostile + "\nh:5432:d:u:p\n");
}

} // namespace
