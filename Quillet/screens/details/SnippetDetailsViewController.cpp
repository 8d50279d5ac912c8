#include "Quillet/screens/details/SnippetDetailsViewController.h"

#include "Quillet/core/Segment.h"
#include "Quillet/core/SnippetService.h"
#include "Quillet/core/UserSettings.h"
#include "Quillet/screens/AlertMaker.h"
#include "Quillet/screens/details/Languages.h"
#include "Quillet/screens/details/ListWithSelectionViewController.h"
#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/controls/DisclosureRow.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

constexpr QSize preferredSize(460, 430); // points

// A field counts as empty also with the one blank that an empty label holds.
bool isEmpty(const QString& text) {
    return text.isEmpty() || text == QStringLiteral(" ");
}

QLabel* caption(const QString& text, QWidget* buddy) {
    auto* label = new QLabel(text, buddy->parentWidget());
    label->setBuddy(buddy);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

} // namespace

SnippetDetailsViewController::SnippetDetailsViewController(std::shared_ptr<Snippet> snippet, QWidget* parent)
    : ViewController(parent)
    , m_snippet(std::move(snippet))
    , m_nameField(new QLineEdit(this))
    , m_languageRow(new platform::DisclosureRow(this))
    , m_notesField(new QPlainTextEdit(this))
    , m_copySwitch(new QCheckBox(QStringLiteral("Import code from the clipboard"), this)) {
    setTitle(m_snippet ? QStringLiteral("Edit Snippet") : QStringLiteral("New Snippet"));
    setPreferredContentSize(preferredSize);
    using Look = platform::BarButtonItem::Look;
    navigationItem().addLeading(
        std::make_unique<platform::BarButtonItem>(Look{{}, QStringLiteral("Cancel")}, [this] { dismiss(); }));
    navigationItem().addTrailing(std::make_unique<platform::BarButtonItem>(
        Look{{}, QStringLiteral("Save"), Look::Weight::Prominent}, [this] { save(); }));

    m_nameField->setPlaceholderText(QStringLiteral("Name"));
    m_nameField->setAccessibleName(QStringLiteral("Name"));
    connect(m_nameField, &QLineEdit::returnPressed, this, &SnippetDetailsViewController::save);
    setFocusProxy(m_nameField);
    m_notesField->setPlaceholderText(QStringLiteral("Notes"));
    m_notesField->setAccessibleName(QStringLiteral("Notes"));
    m_notesField->setTabChangesFocus(true);
    connect(m_languageRow, &QAbstractButton::clicked, this, &SnippetDetailsViewController::pickLanguage);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 10, 16, 16);
    column->setSpacing(8);
    const std::pair<QString, QWidget*> rows[] = {{QStringLiteral("&Name"), m_nameField},
                                                 {QStringLiteral("&Language"), m_languageRow},
                                                 {QStringLiteral("N&otes"), m_notesField}};
    for (const auto& [text, widget] : rows) {
        column->addWidget(caption(text, widget));
        column->addWidget(widget);
    }
    column->addSpacing(4);
    column->addWidget(m_copySwitch);

    if (m_snippet) {
        m_nameField->setText(m_snippet->title());
        m_notesField->setPlainText(m_snippet->notes());
        showLanguage(m_snippet->language().value_or(QString()));
        m_openedTitle = m_nameField->text();
        m_openedNotes = m_notesField->toPlainText();
        m_openedLanguage = m_language;
    } else {
        showLanguage(UserSettings::shared().lastLanguage.value().value_or(QString()));
    }
}

void SnippetDetailsViewController::showLanguage(const QString& language) {
    m_language = language;
    m_languageRow->setText(isEmpty(language) ? QStringLiteral("Choose a language") : language);
    m_languageRow->setAccessibleName(QStringLiteral("Language"));
    m_languageRow->setAccessibleDescription(language);
}

void SnippetDetailsViewController::pickLanguage() {
    auto list = std::make_unique<ListWithSelectionViewController>(QStringLiteral("Language"), languages(),
                                                                  m_language);
    list->onSelect = [this](const QString& language) { showLanguage(language); };
    navigationController()->pushViewController(std::move(list));
}

std::optional<QString> SnippetDetailsViewController::importedCode() const {
    if (!m_copySwitch->isChecked()) return std::nullopt;
    const QString text = QGuiApplication::clipboard()->text();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

void SnippetDetailsViewController::writeChanges() {
    if (m_nameField->text() != m_openedTitle) m_snippet->setTitle(m_nameField->text());
    if (m_language != m_openedLanguage) m_snippet->setLanguage(m_language);
    const QString notes = m_notesField->toPlainText();
    if (notes == m_openedNotes) return;
    m_snippet->setNotes(Segment::mergeTyped(*m_snippet, m_openedNotes, m_snippet->notes(), notes));
}

void SnippetDetailsViewController::save() {
    const QString title = m_nameField->text();
    if (isEmpty(title) || isEmpty(m_language)) {
        showAlert(*this, QStringLiteral("You need a title and language selected to create a snippet."));
        return;
    }
    const bool isNew = !m_snippet;
    if (isNew) {
        m_snippet = Snippet::create(title, m_notesField->toPlainText(), QStringLiteral(""), m_language);
    } else {
        writeChanges();
    }
    if (const auto code = importedCode()) m_snippet->setCode(*code);
    SnippetService().save(m_snippet);
    if (isNew) {
        UserSettings::shared().lastLanguage.set(m_language);
        if (delegate) delegate->didCreate(m_snippet);
    } else {
        if (editDelegate) editDelegate->didEdit(m_snippet);
        dismiss();
    }
}

} // namespace quillet
