#include "Quillet/screens/settings/SettingsHostController.h"

#include "Quillet/cloud/CoreDataMigrator.h"
#include "Quillet/controls/SnippetNavigationController.h"
#include "Quillet/core/FontDescriptor.h"
#include "Quillet/core/KeyStore.h"
#include "Quillet/core/UserSettings.h"
#include "Quillet/screens/settings/AppTransaction.h"
#include "Quillet/screens/settings/DataStatusView.h"
#include "Quillet/screens/settings/HelpMail.h"
#include "Quillet/screens/settings/SettingsView.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/highlightr/Highlightr.h"
#include "platform/screens/controllers/HostingController.h"

#include <QtCore/QPointer>
#include <QtWidgets/QFontDialog>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

constexpr QSize preferredSize(460, 600); // points

void tellEditors() {
    platform::NotificationCenter::defaultCenter().post(reloadTextViewNotification);
}

} // namespace

SettingsHostController::SettingsHostController(QWidget* parent)
    : ViewController(parent) {
    setTitle(QStringLiteral("Settings"));
    setPreferredContentSize(preferredSize);
    navigationItem().addLeading(std::make_unique<platform::BarButtonItem>(
        platform::BarButtonItem::Look{{}, QStringLiteral("Close")}, [this] { didClose(); }));
}

void SettingsHostController::viewDidLoad() {
    ViewController::viewDidLoad();
    auto view = std::make_unique<SettingsView>(m_viewModel, *this);
    m_settingsView = view.get();
    m_hostingController = new platform::HostingController(std::move(view), this);
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(m_hostingController);
}

void SettingsHostController::viewDidAppear(platform::Animated animated) {
    ViewController::viewDidAppear(animated);
    if (m_hasAskedForTransaction) return;
    m_hasAskedForTransaction = true;
    readTransaction();
}

void SettingsHostController::readTransaction() {
    AppTransaction::shared([self = QPointer(this)](const std::optional<AppTransaction>& transaction) {
        if (!transaction)
            platform::logLine(QStringLiteral("🛍️ Unable to reach the transaction. Use last known."));
        else if (self)
            self->m_viewModel.originalDownload.set(transaction->originalAppVersion);
    });
}

void SettingsHostController::updateFontSize(int size) {
    UserSettings::shared().fontSize.set(size);
    m_viewModel.currentFontSize.set(size);
    tellEditors();
}

void SettingsHostController::showHelpMail() {
    auto& migrator = CoreDataMigrator::shared();
    const auto& stats = m_viewModel.dataStatsModel;
    platform::composeMail(helpMail({.foundMigrationRecord = migrator.foundMigrationRecord().value(),
                                    .legacyRecordCount = migrator.legacyCloudKitRecordCount().value(),
                                    .snippets = stats.snippets.value().size(),
                                    .tags = stats.tags.value().size(),
                                    .folders = stats.folders.value().size(),
                                    .versionLine = versionLine()}));
}

void SettingsHostController::showThemePicker() {
    auto picker = std::make_unique<SearchSelectViewController>(platform::Highlightr::availableThemes(),
                                                               m_viewModel.currentTheme.value());
    picker->delegate = this;
    present(std::make_unique<SnippetNavigationController>(std::move(picker)));
}

void SettingsHostController::didSelectTheme(const QString& theme) {
    KeyStore::shared().setCodeTheme(theme);
    m_viewModel.currentTheme.set(theme);
    if (onTheme) onTheme(theme);
}

void SettingsHostController::showDataStatus() {
    navigationController()->pushViewController(
        std::make_unique<DataStatusView>(CoreDataMigrator::shared(), CloudKitService::shared()));
}

void SettingsHostController::pickFont() {
    auto* dialog = new QFontDialog(UserSettings::shared().font(), window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QFontDialog::fontSelected, this, &SettingsHostController::takeFont);
    dialog->open();
}

// The size stays the one of the settings.
void SettingsHostController::takeFont(const QFont& font) {
    const QVariantMap attributes = descriptorFromFont(font);
    m_viewModel.currentFontName.set(font.family());
    m_viewModel.currentFont.set(fontFromDescriptor(attributes, m_viewModel.currentFontSize.value()));
    UserSettings::shared().fontDescriptor.set(attributes);
    tellEditors();
}

} // namespace quillet
