#include "Quillet/screens/details/SnippetDetailsViewController.h"

#include "Quillet/controls/ToolbarTextField.h"
#include "Quillet/core/Segment.h"
#include "Quillet/core/SnippetService.h"
#include "Quillet/core/UserSettings.h"
#include "Quillet/screens/AlertMaker.h"
#include "Quillet/screens/details/Languages.h"
#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/controls/DisclosureRow.h"
#include "platform/screens/controls/SwitchRow.h"
#include "platform/screens/list/GroupedForm.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <limits>

namespace quillet {

namespace {

// Points.
constexpr QSize preferredSize(460, 480);
constexpr int captionSpacing = 6;

// A field counts as empty also with the one blank that an empty label holds.
bool isEmpty(const QString& text) {
    return text.isEmpty() || text == QStringLiteral(" ");
}

QString labelOf(Language language) {
    switch (language) {
    case Language::swift:
        return QStringLiteral("Swift");
    case Language::objectiveC:
        return QStringLiteral("Objective-C");
    case Language::python:
        return QStringLiteral("Python");
    case Language::javascript:
        return QStringLiteral("Javascript");
    }
    return {};
}

void addRow(QVBoxLayout& section, const QString& caption, QWidget* field) {
    auto* label = new QLabel(caption);
    label->setBuddy(field);
    label->setForegroundRole(QPalette::PlaceholderText);
    platform::setTextStyle(*label, platform::TextStyle::Subheadline);
    auto* row = new QVBoxLayout;
    row->setSpacing(captionSpacing);
    row->addWidget(label);
    row->addWidget(field);
    section.addLayout(row);
}

// A text from elsewhere is never cut short.
void prepare(ToolbarTextField& field, const QString& name) {
    field.setPlaceholderText(name);
    field.setAccessibleName(name);
    field.setMaxLength(std::numeric_limits<int>::max());
}

} // namespace

SnippetDetailsViewController::SnippetDetailsViewController(std::shared_ptr<Snippet> snippet, QWidget* parent)
    : ViewController(parent)
    , m_snippet(std::move(snippet))
    , m_nameField(new ToolbarTextField(this))
    , m_languageDetailLabel(new platform::DisclosureRow(this))
    , m_notesField(new ToolbarTextField(this))
    , m_copySwitch(new platform::SwitchRow(QStringLiteral("&Import code from the clipboard"), this)) {
    setTitle(m_snippet ? QStringLiteral("Edit Snippet") : QStringLiteral("New Snippet"));
    setPreferredContentSize(preferredSize);
    setFocusProxy(m_nameField);
    prepare(*m_nameField, QStringLiteral("Name"));
    prepare(*m_notesField, QStringLiteral("Notes"));
    m_languageDetailLabel->setPlaceholderText(QStringLiteral("Choose a language"));
    m_languageDetailLabel->setAccessibleName(QStringLiteral("Language"));
    for (const auto* field : {m_nameField, m_notesField})
        connect(field, &QLineEdit::returnPressed, this, &SnippetDetailsViewController::didTapSave);
    connect(m_languageDetailLabel, &QAbstractButton::clicked, this,
            &SnippetDetailsViewController::pickLanguage);
    addBarButtons();
    addForm();
}

void SnippetDetailsViewController::addForm() {
    auto* form = new platform::GroupedForm(this);
    auto& details = form->addSection({});
    addRow(details, QStringLiteral("&Name"), m_nameField);
    addRow(details, QStringLiteral("&Language"), m_languageDetailLabel);
    addRow(details, QStringLiteral("N&otes"), m_notesField);
    form->addSection({}).addWidget(m_copySwitch);
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(form);
}

void SnippetDetailsViewController::addBarButtons() {
    using Look = platform::BarButtonItem::Look;
    navigationItem().addLeading(std::make_unique<platform::BarButtonItem>(Look{{}, QStringLiteral("Cancel")},
                                                                          [this] { didClose(); }));
    m_saveButton = &navigationItem().addTrailing(std::make_unique<platform::BarButtonItem>(
        Look{{}, QStringLiteral("Save"), Look::Weight::Prominent}, [this] { didTapSave(); }));
}

void SnippetDetailsViewController::viewDidLoad() {
    ViewController::viewDidLoad();
    fillIn();
}

void SnippetDetailsViewController::viewDidAppear(platform::Animated animated) {
    ViewController::viewDidAppear(animated);
    m_nameField->setFocus();
}

void SnippetDetailsViewController::fillIn() {
    if (m_snippet) {
        m_nameField->setText(m_snippet->title());
        m_notesField->setText(m_snippet->notes());
        didSelectOption(m_snippet->language().value_or(QString()));
        m_openedTitle = m_nameField->text();
        m_openedNotes = m_notesField->text();
        m_openedLanguage = m_language;
    } else {
        didSelectOption(startLanguage ? labelOf(*startLanguage)
                                      : UserSettings::shared().lastLanguage.value().value_or(QString()));
    }
}

void SnippetDetailsViewController::didSelectOption(const QString& language) {
    m_language = language;
    m_languageDetailLabel->setText(isEmpty(language) ? QString() : language);
    m_languageDetailLabel->setAccessibleDescription(language);
}

void SnippetDetailsViewController::pickLanguage() {
    auto list = std::make_unique<ListWithSelectionViewController>(
        QStringLiteral("Language"), Languages::shared().languages(), m_language);
    list->delegate = this;
    navigationController()->pushViewController(std::move(list));
}

std::optional<QString> SnippetDetailsViewController::importedCode() const {
    if (!m_copySwitch->isChecked()) return std::nullopt;
    const QString text = QGuiApplication::clipboard()->text();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

void SnippetDetailsViewController::didTapSave() {
    if (m_saveButton->isBusy()) return;
    if (isEmpty(m_nameField->text()) || isEmpty(m_language)) {
        showAlert(*this, QStringLiteral("You need a title and language selected to create a snippet."));
        return;
    }
    m_saveButton->setBusy(true);
    if (m_snippet)
        edit();
    else
        create();
}

void SnippetDetailsViewController::edit() {
    writeChanges();
    if (const auto code = importedCode()) m_snippet->setCode(*code);
    SnippetService::shared().save(m_snippet);
    if (editDelegate) editDelegate->didEdit(m_snippet);
    dismiss();
}

void SnippetDetailsViewController::create() {
    m_snippet = Snippet::create(m_nameField->text(), m_notesField->text(), QStringLiteral(""), m_language);
    if (const auto code = importedCode()) m_snippet->setCode(*code);
    SnippetService::shared().save(m_snippet);
    const QString language = m_language; // the delegate takes the form away
    if (delegate) delegate->didCreate(m_snippet);
    UserSettings::shared().lastLanguage.set(language);
}

void SnippetDetailsViewController::writeChanges() {
    if (m_nameField->text() != m_openedTitle) m_snippet->setTitle(m_nameField->text());
    if (m_language != m_openedLanguage) m_snippet->setLanguage(m_language);
    const QString notes = m_notesField->text();
    if (notes == m_openedNotes) return;
    m_snippet->setNotes(Segment::mergeTyped(*m_snippet, m_openedNotes, m_snippet->notes(), notes));
}

} // namespace quillet
