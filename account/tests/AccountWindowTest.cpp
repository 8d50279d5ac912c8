#include "account/AccountWindow.h"

#include "account/tests/AccountFiles.h"

#include <QtCore/QThreadPool>
#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <future>
#include <optional>

using namespace account;
using platform::CKError;
using platform::CloudResult;

namespace {

QString q(const char* text) {
    return QString::fromUtf8(text);
}

class AccountWindowTest : public AccountFiles {
protected:
    // A connection that answers when the test lets it.
    ConnectionTester tester() {
        return [this](const platform::CloudAccount&, const QString& password) {
            passwords += password;
            return answer.get_future().get();
        };
    }

    void open() { window.emplace(signIn, tester()); }

    QLineEdit& field(const char* name) {
        for (auto* candidate : window->findChildren<QLineEdit*>())
            if (candidate->accessibleName() == q(name)) return *candidate;
        ADD_FAILURE() << "no field " << name;
        std::abort();
    }

    void type(const char* name, const char* text) {
        field(name).clear();
        QTest::keyClicks(&field(name), q(text));
    }

    QPushButton& button(const char* text) {
        for (auto* candidate : window->findChildren<QPushButton*>())
            if (candidate->text().remove(QLatin1Char('&')) == q(text)) return *candidate;
        ADD_FAILURE() << "no button " << text;
        std::abort();
    }

    void fillInServer() {
        type("Host", "localhost");
        type("Database", "d");
        type("User", "u");
        type("Password", "p");
    }

    bool shows(const char* result) {
        return QTest::qWaitFor([&] { return window->result().contains(q(result)); });
    }

    std::promise<CloudResult<void>> answer;
    QStringList passwords; // on the pool's thread, before it answers
    std::optional<AccountWindow> window;
};

TEST_F(AccountWindowTest, SaysWhatIsMissingBeforeOnePresses) {
    open();
    EXPECT_EQ(window->status(), q("Not signed in. Your snippets stay on this machine."));
    EXPECT_FALSE(button("Sign In").isEnabled());
    EXPECT_TRUE(button("Sign Out").isHidden());
    fillInServer();
    EXPECT_TRUE(button("Sign In").isEnabled());
    EXPECT_EQ(window->result(), QString());
    type("Host", "db.example.org");
    EXPECT_FALSE(button("Sign In").isEnabled());
    EXPECT_FALSE(button("Test Connection").isEnabled());
    EXPECT_TRUE(window->result().contains(q("CA file")));
}

TEST_F(AccountWindowTest, ATestRunsBesideTheWindowAndStoresNothing) {
    open();
    fillInServer();
    button("Test Connection").click();
    EXPECT_EQ(window->result(), q("Connecting…"));
    EXPECT_FALSE(button("Testing…").isEnabled()) << "one test at a time";
    answer.set_value(std::unexpected(CKError{CKError::Code::NotAuthenticated, q("server's <b>words</b>")}));
    ASSERT_TRUE(shows("You were not let in."));
    EXPECT_TRUE(window->result().contains(q("server's <b>words</b>")));
    EXPECT_TRUE(button("Test Connection").isEnabled());
    EXPECT_EQ(passwords, QStringList{q("p")});
    EXPECT_FALSE(QFile::exists(servicePath));
    EXPECT_FALSE(QFile::exists(passwordPath));
}

TEST_F(AccountWindowTest, AnEditGivesTheRunningTestUp) {
    open();
    fillInServer();
    button("Test Connection").click();
    type("User", "v");
    EXPECT_TRUE(button("Test Connection").isEnabled());
    answer.set_value({});
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    EXPECT_EQ(window->result(), QString()) << "the answer was about what stood there before";
}

TEST_F(AccountWindowTest, AWindowThatGoesIsNotToldOfItsTest) {
    open();
    fillInServer();
    button("Test Connection").click();
    window.reset();
    answer.set_value({});
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
}

TEST_F(AccountWindowTest, SigningInStoresTestsAndShowsIt) {
    open();
    fillInServer();
    button("Sign In").click();
    answer.set_value({});
    ASSERT_TRUE(shows("You are signed in, and the connection works."));
    EXPECT_EQ(window->status(), q("Signed in: d on localhost, as u"));
    EXPECT_EQ(contentsOf(passwordPath), "localhost:5432:d:u:p\n");
    EXPECT_EQ(passwords, QStringList{QString()}) << "the stored one is what is tested";
    EXPECT_EQ(field("Password").text(), QString());

    open();
    EXPECT_EQ(field("User").text(), q("u"));
    const QString kept = q("Leave empty to keep the stored one");
    EXPECT_EQ(field("Password").placeholderText(), kept);
    type("Port", "5433");
    EXPECT_EQ(field("Password").placeholderText(), QString()) << "it belongs to another port";
    type("Port", "5432");
    EXPECT_EQ(field("Password").placeholderText(), kept);
    EXPECT_FALSE(button("Sign Out").isHidden());
    button("Sign Out").click();
    EXPECT_EQ(window->status(), q("Not signed in. Your snippets stay on this machine."));
    EXPECT_EQ(contentsOf(passwordPath), "");
}

TEST_F(AccountWindowTest, SavingKeepsWhatNoFieldShows) {
    server.sslMode = q("require");
    ASSERT_TRUE(signIn.signIn(server, q("p")));
    open();
    type("Database", "other");
    button("Save").click();
    answer.set_value({});
    ASSERT_TRUE(shows("You are signed in"));
    server.database = q("other");
    EXPECT_EQ(signIn.account(), platform::AccountResult(platform::CloudAccount(server)));
}

TEST_F(AccountWindowTest, FollowsTheFileThatSomebodyElseWrites) {
    open();
    ASSERT_TRUE(platform::ServiceFile(servicePath).write(platform::FileAccount{q("/shared/q")}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->status() == q("Signed in: /shared/q"); }));
    QFile file(servicePath);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[quillet]\nhost=h\n");
    file.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->status().contains(q("cannot be read")); }));
    EXPECT_FALSE(button("Sign Out").isHidden()) << "it can be thrown away";
}

} // namespace
