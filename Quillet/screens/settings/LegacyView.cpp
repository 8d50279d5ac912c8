#include "Quillet/screens/settings/LegacyView.h"

#include "platform/screens/controls/ButtonRole.h"
#include "platform/screens/controls/TextLabel.h"
#include "platform/screens/list/GroupedForm.h"
#include "platform/screens/list/ListView.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

using platform::ListView;

namespace {

const QString explanation = QStringLiteral("If you've used Quillet for a while its possible you have some "
                                           "missing data from an early build. If so, and "
                                           "you can see it in the list below, tap the button and it'll bring "
                                           "it over to the new data store. If you do "
                                           "this more than once, you will end up with duplicated data.");

} // namespace

LegacyView::LegacyView(QWidget* parent)
    : ViewController(parent) {
    setTitle(QStringLiteral("Legacy Data"));
}

void LegacyView::viewDidLoad() {
    ViewController::viewDidLoad();
    auto* form = new platform::GroupedForm(this);
    auto& section = form->addSection(QStringLiteral("Migration"));
    section.addWidget(platform::makeLabel(explanation, platform::TextStyle::Body, form));
    auto* button = new QPushButton(QStringLiteral("Migrate Data"), form);
    platform::setButtonRole(*button, platform::ButtonRole::Prominent);
    connect(button, &QPushButton::clicked, this, [this] { m_model.migrate(); });
    section.addWidget(button);

    auto* list = new ListView(this);
    list->setAccessibleName(QStringLiteral("Snippets"));
    list->setModel(&m_rows);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(form, 1);
    column->addWidget(list, 1);

    m_subscriptions.push_back(
        m_model.legacySnippets().observe([this](const auto& snippets) { showSnippets(snippets); }));
    m_subscriptions.push_back(
        m_model.migrated().observe([button](bool isMigrated) { button->setVisible(!isMigrated); }));
}

void LegacyView::showSnippets(const LegacyModel::Snippets& snippets) {
    QList<QStandardItem*> rows; // the model takes them
    auto* heading = new QStandardItem(QStringLiteral("Snippets"));
    heading->setData(static_cast<int>(ListView::RowStyle::SectionHeader), ListView::StyleRole);
    rows += heading;
    for (const auto& snippet : snippets) {
        auto* row = new QStandardItem(snippet->title());
        row->setData(snippet->language().value_or(QString()), ListView::DetailRole);
        rows += row;
    }
    m_rows.clear();
    m_rows.invisibleRootItem()->appendRows(rows);
}

} // namespace quillet
