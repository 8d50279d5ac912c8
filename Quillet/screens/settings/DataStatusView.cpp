#include "Quillet/screens/settings/DataStatusView.h"

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/UserSettings.h"
#include "Quillet/screens/settings/LegacyView.h"
#include "Quillet/screens/settings/SettingsRow.h"
#include "Quillet/screens/settings/ValueRow.h"
#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/controls/TextLabel.h"
#include "platform/screens/list/GroupedForm.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

using platform::GroupedForm;

namespace {

ValueRow* addRow(QVBoxLayout& section, const QString& label) {
    auto* row = new ValueRow(label);
    section.addWidget(row);
    return row;
}

QString nameOf(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

} // namespace

DataStatusView::DataStatusView(CoreDataMigrator& coreDataMigrator, CloudKitService& cloudKitService,
                               QWidget* parent)
    : ViewController(parent)
    , m_coreDataMigrator(&coreDataMigrator)
    , m_cloudKitService(&cloudKitService) {
    setTitle(QStringLiteral("Your Data"));
    auto* form = new GroupedForm(this);
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(form);
    addAbout(*form);
    addStats(*form);
    addMissingData(*form);
    observe();
}

void DataStatusView::addAbout(GroupedForm& form) {
    auto& about = form.addSection(QStringLiteral("About"));
    about.addWidget(platform::makeLabel(
        QStringLiteral(
            "Quillet uses CloudKit to store your data. If you don't have iCloud setup, things will "
            "only work locally."),
        platform::TextStyle::Body, this));
    m_storeVersion = addRow(about, QStringLiteral("Data Store Version"));
    m_storeVersion->setValue(QStringLiteral("CKC-2"));
    m_started = addRow(about, QStringLiteral("Migration Started"));
    m_complete = addRow(about, QStringLiteral("Migration Complete"));
    m_recordCount = addRow(about, QStringLiteral("Legacy Record Count"));
}

void DataStatusView::addStats(GroupedForm& form) {
    auto& stats = form.addSection(QStringLiteral("Stats"));
    m_snippets = addRow(stats, QStringLiteral("Snippets"));
    m_tags = addRow(stats, QStringLiteral("Tags"));
    m_folders = addRow(stats, QStringLiteral("Folders"));
}

void DataStatusView::addMissingData(GroupedForm& form) {
    auto* link = new SettingsRow({QStringLiteral("Legacy Data"), QStringLiteral("doc.fill"), {}},
                                 platform::Asset::SystemGray, SettingsRow::Leads::Inward);
    connect(link, &QAbstractButton::clicked, this, &DataStatusView::showLegacy);
    auto& missing = form.addSection(QStringLiteral("Missing Data?"));
    missing.setContentsMargins(0, 0, 0, 0); // the row reaches from edge to edge
    missing.addWidget(link);
}

void DataStatusView::observe() {
    const auto showCount = [this](ValueRow* row) {
        return [this, row](const auto& objects) { row->setValue(m_formatter.toString(objects.size())); };
    };
    m_subscriptions.push_back(m_viewModel.snippets.observe(showCount(m_snippets)));
    m_subscriptions.push_back(m_viewModel.tags.observe(showCount(m_tags)));
    m_subscriptions.push_back(m_viewModel.folders.observe(showCount(m_folders)));
    const auto refresh = [this](const auto&) { showMigration(); };
    m_subscriptions.push_back(m_coreDataMigrator->foundMigrationRecord().observe(refresh));
    m_subscriptions.push_back(m_coreDataMigrator->legacyCloudKitRecordCount().observe(refresh));
}

void DataStatusView::viewWillAppear(platform::Animated animated) {
    ViewController::viewWillAppear(animated);
    showMigration();
}

void DataStatusView::showMigration() {
    const bool isMigrated = UserSettings::shared().snippetsMigrated.value();
    m_storeVersion->setVisible(isMigrated);
    m_started->setVisible(!isMigrated);
    m_started->setValue(nameOf(m_coreDataMigrator->foundMigrationRecord().value()));
    m_complete->setValue(nameOf(isMigrated));
    m_recordCount->setValue(m_formatter.toString(m_coreDataMigrator->legacyCloudKitRecordCount().value()));
}

void DataStatusView::showLegacy() {
    navigationController()->pushViewController(std::make_unique<LegacyView>(
        std::make_unique<LegacyModel>(*m_cloudKitService, CoreDataStack::shared())));
}

} // namespace quillet
