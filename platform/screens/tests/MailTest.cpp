#include "platform/screens/sharing/Mail.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QDesktopServices>
#include <QtTest/QTest>
#include <gtest/gtest.h>

using namespace platform;

namespace {

// Takes the place of the desktop's way to open a URL.
class UrlRecorder : public QObject {
    Q_OBJECT

public:
    UrlRecorder() { QDesktopServices::setUrlHandler(QStringLiteral("mailto"), this, "record"); }

    ~UrlRecorder() override { QDesktopServices::unsetUrlHandler(QStringLiteral("mailto")); }

    Q_INVOKABLE void record(const QUrl& url) { opened += url; }

    QList<QUrl> opened;
};

// A desktop of which only what a test puts there can be found.
class MailTest : public ::testing::Test {
protected:
    MailTest() { qputenv("PATH", folder.path().toUtf8()); }

    // In the shell's language, without any other program.
    void addProgram(const char* name, const QByteArray& script) const {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("#!/bin/sh\n" + script + "\n");
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void addHandler(const QByteArray& answer) const {
        addProgram("xdg-mime",
                   "[ \"$*\" = 'query default x-scheme-handler/mailto' ] && echo '" + answer + "'");
    }

    // Writes one argument a line and tells that it is done by the file's name.
    void addComposer() const {
        addProgram("xdg-email", "for a in \"$@\"; do printf '%s\\n' \"$a\"; done > \"${0%/*}/part\"\n"
                                "/bin/mv \"${0%/*}/part\" \"${0%/*}/arguments\"");
    }

    QStringList arguments() const {
        QFile file(folder.filePath(QStringLiteral("arguments")));
        if (!QTest::qWaitFor([&] { return file.exists(); }) || !file.open(QFile::ReadOnly)) return {};
        return QString::fromUtf8(file.readAll()).chopped(1).split(u'\n');
    }

    QTemporaryDir folder;
};

TEST_F(MailTest, TheDesktopIsAskedEachTimeWhetherItKnowsAProgram) {
    addComposer();
    addHandler("");
    EXPECT_TRUE(canSendMail()) << "it has not answered yet";
    EXPECT_TRUE(QTest::qWaitFor([] { return !canSendMail(); }));
    addHandler("thunderbird.desktop");
    EXPECT_TRUE(QTest::qWaitFor([] { return canSendMail(); }));
    QFile::remove(folder.filePath(QStringLiteral("xdg-mime")));
    QFile::remove(folder.filePath(QStringLiteral("xdg-email")));
    EXPECT_TRUE(QTest::qWaitFor([] { return !canSendMail(); }));
    addComposer(); // alone, as in a sandbox
    EXPECT_TRUE(QTest::qWaitFor([] { return canSendMail(); }));
}

TEST_F(MailTest, TheMessageReachesTheComposerAndNothingInItIsAnOption) {
    addComposer();
    addHandler("thunderbird.desktop");
    composeMail({.recipient = QStringLiteral("--attach@x.example"),
                 .subject = QStringLiteral("--body"),
                 .body = QStringLiteral("-first \"line\" $HOME\nzweite Zeile: ä"),
                 .attachments = {QStringLiteral("/tmp/--a b.txt")}});
    const QStringList expected{QStringLiteral("--utf8"),
                               QStringLiteral("--subject"),
                               QStringLiteral("--body"),
                               QStringLiteral("--body"),
                               QStringLiteral("-first \"line\" $HOME"),
                               QStringLiteral("zweite Zeile: ä"),
                               QStringLiteral("--attach"),
                               QStringLiteral("/tmp/--a b.txt"),
                               QStringLiteral("mailto:--attach@x.example")};
    EXPECT_EQ(arguments(), expected);
}

TEST_F(MailTest, WhatIsEmptyIsLeftOut) {
    addComposer();
    addHandler("thunderbird.desktop");
    composeMail({.recipient = {}, .subject = {}, .body = QStringLiteral("text")});
    EXPECT_EQ(arguments().join(u' '), QStringLiteral("--utf8 --body text"));
}

TEST_F(MailTest, WithoutTheComposerTheDesktopOpensTheAddress) {
    addHandler("thunderbird.desktop");
    UrlRecorder recorder;
    composeMail({.recipient = QStringLiteral("a+b?c@x.example"),
                 .subject = QStringLiteral("1 & 2 = 3?"),
                 .body = QStringLiteral("two\nlines ä#%")});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !recorder.opened.isEmpty(); }));
    EXPECT_EQ(recorder.opened.first().toEncoded(),
              QByteArray("mailto:a%2Bb%3Fc@x.example?subject=1%20%26%202%20%3D%203%3F&body=two%0D%0Alines%20"
                         "%C3%A4%23%25"));
}

TEST_F(MailTest, NothingHappensWhereNobodyHandlesMail) {
    UrlRecorder recorder;
    addComposer();
    addHandler("");
    composeMail({.recipient = QStringLiteral("a@x.example"), .subject = {}, .body = {}});
    ASSERT_TRUE(QTest::qWaitFor([] { return !canSendMail(); }));
    // Had the composer been started, its arguments would come before those of this message.
    addHandler("thunderbird.desktop");
    ASSERT_TRUE(QTest::qWaitFor([] { return canSendMail(); }));
    composeMail({.recipient = QStringLiteral("second@x.example"), .subject = {}, .body = {}});
    EXPECT_EQ(arguments().value(1), QStringLiteral("mailto:second@x.example"));
    EXPECT_TRUE(recorder.opened.isEmpty());
}

} // namespace

#include "MailTest.moc"
