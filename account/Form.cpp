#include "account/Form.h"

#include "platform/screens/appearance/Palette.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/controls/ButtonRole.h"

#include <QtCore/QDir>
#include <QtGui/QAction>
#include <QtGui/QRegularExpressionValidator>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>

namespace account {

using platform::Asset;

namespace {

constexpr int portWidth = 96;

QVBoxLayout* addColumn(QHBoxLayout* row, int stretch) {
    auto* column = new QVBoxLayout;
    column->setSpacing(4);
    row->addLayout(column, stretch);
    return column;
}

QHBoxLayout* addRow(QVBoxLayout* page) {
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    page->addLayout(row);
    return row;
}

QVBoxLayout* makePage(QWidget* page) {
    auto* rows = new QVBoxLayout(page);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(12);
    return rows;
}

} // namespace

Form::Form(QWidget* parent)
    : QWidget(parent)
    , m_pages(new QStackedWidget(this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(16);
    column->addWidget(makeKindSwitch());
    column->addWidget(m_pages);
    m_pages->addWidget(makeServerPage());
    m_pages->addWidget(makeFilePage());
    m_serverButton->setChecked(true);
    showPage();
    m_host->setFocus();
}

QWidget* Form::makeKindSwitch() {
    auto* box = new QWidget(this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    auto* group = new QButtonGroup(box);
    const auto add = [&](const QString& text) {
        auto* button = new QPushButton(text, box);
        platform::setButtonRole(*button, platform::ButtonRole::Segment);
        button->setCheckable(true);
        button->setAutoDefault(true); // Return presses the one with the focus
        group->addButton(button);
        row->addWidget(button, 1);
        return button;
    };
    m_serverButton = add(QStringLiteral("Se&rver"));
    m_fileButton = add(QStringLiteral("Shared &File"));
    connect(group, &QButtonGroup::buttonToggled, this, [this] {
        showPage();
        Q_EMIT edited();
    });
    return box;
}

QWidget* Form::makeServerPage() {
    auto* page = new QWidget(m_pages);
    auto* rows = makePage(page);
    auto* address = addRow(rows);
    m_host = addField(addColumn(address, 1), QStringLiteral("&Host"), QStringLiteral("db.example.org"));
    m_port = addField(addColumn(address, 0), QStringLiteral("&Port"), QStringLiteral("5432"));
    m_port->setText(AccountDraft().port);
    m_port->setFixedWidth(portWidth);
    m_port->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,5}")), m_port));
    auto* names = addRow(rows);
    m_database = addField(addColumn(names, 1), QStringLiteral("&Database"), QStringLiteral("quillet"));
    m_user = addField(addColumn(names, 1), QStringLiteral("&User"), QString());
    m_password = addField(addColumn(addRow(rows), 1), QStringLiteral("Pass&word"), QString());
    m_password->setEchoMode(QLineEdit::Password);
    m_rootCertificate = addField(addColumn(addRow(rows), 1), QStringLiteral("&CA File"),
                                 QStringLiteral("Needed for a server on another machine"));
    addChooser(m_rootCertificate, QStringLiteral("Choose CA File"), [this] {
        return QFileDialog::getOpenFileName(
            this, QStringLiteral("CA File"), QDir::homePath(),
            QStringLiteral("Certificates (*.pem *.crt *.cer);;All Files (*)"));
    });
    return page;
}

QWidget* Form::makeFilePage() {
    auto* page = new QWidget(m_pages);
    auto* rows = makePage(page);
    m_path = addField(addColumn(addRow(rows), 1), QStringLiteral("Pa&th"),
                      QStringLiteral("/shared/quillet.cloud"));
    addChooser(m_path, QStringLiteral("Choose Shared File"), [this] {
        return QFileDialog::getSaveFileName(this, QStringLiteral("Shared File"), QDir::homePath(), QString(),
                                            nullptr, QFileDialog::DontConfirmOverwrite);
    });
    auto* about =
        new QLabel(QStringLiteral("A file on a disk that your machines share. It is made if it is not "
                                  "there, and an existing library in it is joined."),
                   page);
    about->setWordWrap(true);
    about->setForegroundRole(QPalette::PlaceholderText);
    rows->addWidget(about);
    return page;
}

QLineEdit* Form::addField(QVBoxLayout* column, const QString& label, const QString& hint) {
    auto* field = new QLineEdit(this);
    field->setPlaceholderText(hint);
    field->setAccessibleName(QString(label).remove(QLatin1Char('&')));
    auto* caption = new QLabel(label, this);
    caption->setBuddy(field);
    caption->setForegroundRole(QPalette::PlaceholderText);
    column->addWidget(caption);
    column->addWidget(field);
    connect(field, &QLineEdit::textEdited, this, &Form::edited);
    return field;
}

void Form::addChooser(QLineEdit* field, const QString& name, const std::function<QString()>& choose) {
    auto* action = field->addAction(platform::symbolIcon(QStringLiteral("folder.fill"), Asset::Accent),
                                    QLineEdit::TrailingPosition);
    action->setText(name);
    action->setToolTip(name);
    connect(action, &QAction::triggered, this, [this, field, choose] {
        const QString path = choose();
        if (path.isEmpty()) return;
        field->setText(path);
        Q_EMIT edited();
    });
}

// The page that is hidden takes no room.
void Form::showPage() {
    m_pages->setCurrentIndex(m_serverButton->isChecked() ? 0 : 1);
    for (int i = 0; i < m_pages->count(); ++i)
        m_pages->widget(i)->setSizePolicy(QSizePolicy::Preferred, i == m_pages->currentIndex()
                                                                      ? QSizePolicy::Preferred
                                                                      : QSizePolicy::Ignored);
    m_pages->setMaximumHeight(m_pages->currentWidget()->sizeHint().height());
}

AccountDraft Form::draft() const {
    AccountDraft draft;
    draft.kind = m_serverButton->isChecked() ? AccountDraft::Kind::Server : AccountDraft::Kind::File;
    draft.host = m_host->text().trimmed();
    draft.port = m_port->text();
    draft.database = m_database->text().trimmed();
    draft.user = m_user->text().trimmed();
    draft.rootCertificate = m_rootCertificate->text().trimmed();
    draft.sslMode = m_sslMode;
    draft.path = m_path->text().trimmed();
    return draft;
}

void Form::setDraft(const AccountDraft& draft) {
    (draft.kind == AccountDraft::Kind::Server ? m_serverButton : m_fileButton)->setChecked(true);
    m_host->setText(draft.host);
    m_port->setText(draft.port);
    m_database->setText(draft.database);
    m_user->setText(draft.user);
    m_rootCertificate->setText(draft.rootCertificate);
    m_sslMode = draft.sslMode;
    m_path->setText(draft.path);
}

QString Form::password() const {
    return m_password->text();
}

void Form::setPasswordHint(const QString& hint) {
    m_password->setPlaceholderText(hint);
}

void Form::clearPassword() {
    m_password->clear();
}

} // namespace account
