#include "Quillet/screens/settings/DataStatusView.h"

#include "Quillet/core/UserSettings.h"
#include "Quillet/screens/settings/LegacyView.h"
#include "Quillet/screens/settings/ValueRow.h"
#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/controls/DisclosureRow.h"
#include "platform/screens/controls/TextLabel.h"
#include "platform/screens/list/GroupedForm.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

QString textOf(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

ValueRow* addRow(QVBoxLayout& section, const QString& label) {
    auto* row = new ValueRow(label);
    section.addWidget(row);
    return row;
}

} // namespace

DataStatusView::DataStatusView(QWidget* parent)
    : ViewController(parent) {
    setTitle(QStringLiteral("Your Data"));
}

void DataStatusView::viewDidLoad() {
    ViewController::viewDidLoad();
    auto* form = new platform::GroupedForm(this);
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(form);

    auto& about = form->addSection(QStringLiteral("About"));
    about.addWidget(platform::makeLabel(
        QStringLiteral(
            "Quillet uses CloudKit to store your data. If you don't have iCloud setup, things will "
            "only work locally."),
        platform::TextStyle::Body, form));
    m_version = addRow(about, QStringLiteral("Data Store Version"));
    m_version->setValue(QStringLiteral("CKC-2"));
    m_started = addRow(about, QStringLiteral("Migration Started"));
    m_complete = addRow(about, QStringLiteral("Migration Complete"));
    m_legacyCount = addRow(about, QStringLiteral("Legacy Record Count"));
    auto& stats = form->addSection(QStringLiteral("Stats"));
    m_snippets = addRow(stats, QStringLiteral("Snippets"));
    m_tags = addRow(stats, QStringLiteral("Tags"));
    m_folders = addRow(stats, QStringLiteral("Folders"));
    auto* link = new platform::DisclosureRow(form);
    link->setText(QStringLiteral("Legacy Data"));
    link->setAccessibleName(link->text());
    connect(link, &QAbstractButton::clicked, this, &DataStatusView::showLegacy);
    form->addSection(QStringLiteral("Missing Data?")).addWidget(link);

    const auto follow = [this](auto& observable) {
        m_subscriptions.push_back(observable.observeChanges([this](const auto&) { refresh(); }));
    };
    follow(m_coreDataMigrator->foundMigrationRecord());
    follow(m_coreDataMigrator->legacyCloudKitRecordCount());
    follow(m_viewModel.snippets);
    follow(m_viewModel.tags);
    follow(m_viewModel.folders);
    refresh();
}

void DataStatusView::refresh() {
    const bool isMigrated = UserSettings::shared().snippetsMigrated.value();
    m_version->setVisible(isMigrated);
    m_started->setVisible(!isMigrated);
    m_started->setValue(textOf(m_coreDataMigrator->foundMigrationRecord().value()));
    m_complete->setValue(textOf(isMigrated));
    m_legacyCount->setValue(QString::number(m_coreDataMigrator->legacyCloudKitRecordCount().value()));
    m_snippets->setValue(QString::number(m_viewModel.snippets.value().size()));
    m_tags->setValue(QString::number(m_viewModel.tags.value().size()));
    m_folders->setValue(QString::number(m_viewModel.folders.value().size()));
}

void DataStatusView::showLegacy() {
    navigationController()->pushViewController(std::make_unique<LegacyView>());
}

} // namespace quillet
