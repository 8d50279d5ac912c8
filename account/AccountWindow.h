#pragma once

#include "account/ConnectionTest.h"
#include "account/Form.h"
#include "account/SignIn.h"
#include "account/StatusLine.h"
#include "platform/cloud/AccountWatcher.h"

class QPushButton;

namespace account {

// The one window: who is signed in, the form, and what one can do with it. Main thread, which no connection
// ever holds up.
class AccountWindow : public QWidget {
    Q_OBJECT

public:
    AccountWindow(SignIn signIn, ConnectionTester tester);

    Form& form() { return *m_form; }

    QString status() const { return m_status->text(); }

    QString result() const { return m_result->text(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeButtons();
    void showStatus();
    void showPasswordHint();
    void showForm();
    void edited();
    void showReadiness();
    void signIn();
    void signOut();
    void test(const QString& success);
    void finishTest(const platform::CloudResult<void>& result, const QString& success);
    void showResult(platform::Asset dot, const QString& text);
    void showFailure(const QString& what, const platform::CKError& error);

    SignIn m_signIn;
    ConnectionTest m_test;
    Form* m_form;
    StatusLine* m_status;
    StatusLine* m_result;
    QPushButton* m_signOutButton;
    QPushButton* m_testButton;
    QPushButton* m_signInButton;
    platform::AccountWatcher m_watcher;
    platform::Subscription m_accountChanges;
};

} // namespace account
