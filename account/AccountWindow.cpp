#include "account/AccountWindow.h"

#include "account/Explanation.h"
#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/controls/ButtonRole.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace account {

using platform::Asset;
using platform::ButtonRole;
using platform::CKError;
using platform::CloudResult;

namespace {

constexpr int windowWidth = 460;
constexpr int roomForResult = 40; // so that an answer of two more lines moves nothing

QLabel* makeTitle(QWidget* parent) {
    auto* title = new QLabel(QStringLiteral("Quillet Account"), parent);
    platform::setTextStyle(*title, platform::TextStyle::LargeTitle);
    return title;
}

QPushButton* makeButton(ButtonRole role, const QString& text, QWidget* parent) {
    auto* button = new QPushButton(text, parent);
    platform::setButtonRole(*button, role);
    button->setAutoDefault(true); // Return presses the one with the focus
    return button;
}

} // namespace

AccountWindow::AccountWindow(SignIn signIn, ConnectionTester tester)
    : m_signIn(std::move(signIn))
    , m_test(std::move(tester))
    , m_form(new Form(this))
    , m_status(new StatusLine(QStringLiteral("Account"), this))
    , m_result(new StatusLine(QStringLiteral("Result"), this))
    , m_signOutButton(makeButton(ButtonRole::Destructive, QStringLiteral("Sign &Out"), this))
    , m_testButton(makeButton(ButtonRole::Bordered, QStringLiteral("T&est Connection"), this))
    , m_signInButton(makeButton(ButtonRole::Prominent, QStringLiteral("&Sign In"), this))
    , m_watcher(m_signIn.service()) {
    setWindowTitle(QStringLiteral("Quillet Account"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 20);
    column->setSpacing(16);
    column->addWidget(makeTitle(this));
    column->addWidget(m_status);
    column->addWidget(m_form);
    column->addWidget(m_result);
    column->addStretch(1); // nothing else grows
    column->addWidget(makeButtons());

    connect(m_form, &Form::edited, this, &AccountWindow::edited);
    connect(m_signInButton, &QPushButton::clicked, this, &AccountWindow::signIn);
    connect(m_signOutButton, &QPushButton::clicked, this, &AccountWindow::signOut);
    connect(m_testButton, &QPushButton::clicked, this,
            [this] { test(QStringLiteral("The connection works.")); });
    m_accountChanges = m_watcher.account().observeChanges([this](const auto&) { showStatus(); });
    showForm();
    showStatus();
    showReadiness();
    resize(windowWidth, layout()->heightForWidth(windowWidth) + roomForResult);
}

QWidget* AccountWindow::makeButtons() {
    auto* box = new QWidget(this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(12);
    row->addWidget(m_signOutButton);
    row->addStretch();
    row->addWidget(m_testButton);
    row->addWidget(m_signInButton);
    return box;
}

void AccountWindow::showStatus() {
    const auto account = m_signIn.account();
    const bool isSignedIn = account && *account;
    if (!account)
        m_status->show(Asset::SystemRed,
                       QStringLiteral("The account cannot be read: %1.").arg(account.error().message));
    else if (isSignedIn)
        m_status->show(Asset::KindaGreen, QStringLiteral("Signed in: %1").arg(nameOf(**account)));
    else
        m_status->show(Asset::SystemGray,
                       QStringLiteral("Not signed in. Your snippets stay on this machine."));
    // An account that cannot be read can be thrown away as well.
    m_signOutButton->setVisible(isSignedIn || !account);
    m_signInButton->setText(isSignedIn ? QStringLiteral("&Save") : QStringLiteral("&Sign In"));
    showPasswordHint();
}

void AccountWindow::showPasswordHint() {
    const bool isKept = SignIn::keepsPassword(m_watcher.account().value(), m_form->draft().account());
    m_form->setPasswordHint(isKept ? QStringLiteral("Leave empty to keep the stored one") : QString());
}

void AccountWindow::showForm() {
    if (const auto account = m_signIn.account(); account && *account)
        m_form->setDraft(AccountDraft::from(**account));
}

// What was found out is no longer about what stands in the form.
void AccountWindow::edited() {
    m_test.giveUp();
    m_result->clear();
    showPasswordHint();
    showReadiness();
}

void AccountWindow::showReadiness() {
    const auto complaint = m_form->draft().complaint();
    const bool isTesting = m_test.isRunning();
    m_testButton->setText(isTesting ? QStringLiteral("Testing…") : QStringLiteral("T&est Connection"));
    m_testButton->setEnabled(!complaint && !isTesting);
    m_signInButton->setEnabled(!complaint && !isTesting);
    if (complaint) showResult(Asset::Accent, *complaint);
}

void AccountWindow::signIn() {
    const auto draft = m_form->draft();
    if (draft.complaint()) return;
    if (auto done = m_signIn.signIn(draft.account(), m_form->password()); !done)
        return showFailure(QStringLiteral("You could not be signed in."), done.error());
    m_form->clearPassword();
    showStatus();
    test(QStringLiteral("You are signed in, and the connection works."));
}

void AccountWindow::signOut() {
    edited();
    if (auto done = m_signIn.signOut(); !done)
        showFailure(QStringLiteral("You could not be signed out."), done.error());
    showStatus();
}

void AccountWindow::test(const QString& success) {
    const auto draft = m_form->draft();
    showResult(Asset::SystemGray, QStringLiteral("Connecting…"));
    m_test.start(draft.account(), m_form->password(),
                 [this, success](const auto& result) { finishTest(result, success); });
    showReadiness();
}

void AccountWindow::finishTest(const CloudResult<void>& result, const QString& success) {
    if (result)
        showResult(Asset::KindaGreen, success);
    else
        showFailure(QStringLiteral("The connection does not work."), result.error());
    showReadiness();
}

// A long answer makes the window taller, and not the form smaller.
void AccountWindow::showResult(Asset dot, const QString& text) {
    m_result->show(dot, text);
    resize(width(), std::max(height(), layout()->heightForWidth(width())));
}

void AccountWindow::showFailure(const QString& what, const CKError& error) {
    showResult(Asset::SystemRed, QStringLiteral("%1 %2").arg(what, explanationOf(error)));
}

void AccountWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        m_signInButton->click();
    else
        QWidget::keyPressEvent(event);
}

} // namespace account
