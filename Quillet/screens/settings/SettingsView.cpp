#include "Quillet/screens/settings/SettingsView.h"

#include "Quillet/screens/settings/DeploymentValues.h"
#include "Quillet/screens/settings/SettingsActionHandler.h"
#include "Quillet/screens/settings/SettingsRow.h"
#include "platform/screens/controls/TextLabel.h"
#include "platform/screens/list/GroupedForm.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

using platform::Asset;
using Leads = SettingsRow::Leads;

namespace {

constexpr int captionIndent = 14; // points, as the headings

std::unique_ptr<SettingsRow> makeRow(const QString& title, const QString& symbol, Asset color, Leads leads) {
    return std::make_unique<SettingsRow>(ColorfulIconLabelStyle::Label{title, symbol, {}}, color, leads);
}

} // namespace

QString versionLine() {
    return QStringLiteral("Version: %1 (%2)")
        .arg(QCoreApplication::applicationVersion(), QStringLiteral(QUILLET_BUILD));
}

SettingsView::SettingsView(SettingsViewModel& viewModel, SettingsActionHandler& actionHandler,
                           QWidget* parent)
    : QWidget(parent)
    , openPage([](const QUrl& page) { QDesktopServices::openUrl(page); })
    , m_viewModel(&viewModel)
    , m_actionHandler(&actionHandler)
    , m_form(new platform::GroupedForm(this)) {
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(m_form);
    addEditor();
    addAdvanced();
    addDeveloper();
    addOtherApps();
    addFooter();
}

void SettingsView::addEditor() {
    auto& theme = addRow(addSection(QStringLiteral("EDITOR")),
                         makeRow(QStringLiteral("Theme"), QStringLiteral("paintpalette.fill"),
                                 Asset::SystemOrange, Leads::Inward),
                         [this] { m_actionHandler->showThemePicker(); });
    m_subscriptions.push_back(
        m_viewModel->currentTheme.observe([&theme](const QString& name) { theme.setValue(name); }));
}

void SettingsView::addAdvanced() {
    addRow(addSection(QStringLiteral("ADVANCED")),
           makeRow(QStringLiteral("Data"), QStringLiteral("cloud.fill"), Asset::Purple, Leads::Inward),
           [this] { m_actionHandler->showDataStatus(); });
}

void SettingsView::addDeveloper() {
    auto& developer = addSection(QStringLiteral("DEVELOPER"));
    addRow(developer,
           makeRow(QStringLiteral("Help"), QStringLiteral("questionmark.circle"), Asset::BlueStart,
                   Leads::Outward),
           [this] { m_actionHandler->showHelpMail(); });
    addRow(developer,
           makeRow(QStringLiteral("Website"), QStringLiteral("safari"), Asset::GreenStart, Leads::Outward),
           opening(deployment::website));
}

void SettingsView::addOtherApps() {
    addRow(addSection(QStringLiteral("OTHER APPS")),
           std::make_unique<SettingsRow>(
               ColorfulIconLabelStyle::Label{deployment::otherAppName, {}, deployment::otherAppImage},
               Asset::Card, Leads::Outward),
           opening(deployment::otherAppPage));
}

void SettingsView::addFooter() {
    std::unique_ptr<QLabel> footer(
        platform::makeLabel({}, platform::TextStyle::Footnote, this, QPalette::PlaceholderText));
    footer->setContentsMargins(captionIndent, 0, captionIndent, 0);
    footer->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_subscriptions.push_back(
        m_viewModel->originalDownload.observe([footer = footer.get()](const auto& version) {
            QString text = versionLine();
            if (version) text += QStringLiteral("\nOriginal Download: ") + *version;
            footer->setText(text);
        }));
    m_form->addWidget(std::move(footer));
}

QVBoxLayout& SettingsView::addSection(const QString& heading) {
    auto& section = m_form->addSection(heading);
    section.setContentsMargins(0, 0, 0, 0);
    section.setSpacing(0);
    return section;
}

SettingsRow& SettingsView::addRow(QVBoxLayout& section, std::unique_ptr<SettingsRow> row,
                                  std::function<void()> action) {
    auto& added = *row.release(); // the card owns it
    section.addWidget(&added);
    connect(&added, &QAbstractButton::clicked, this, std::move(action));
    return added;
}

std::function<void()> SettingsView::opening(const QString& page) {
    return [this, page] { openPage(QUrl(page)); };
}

} // namespace quillet
