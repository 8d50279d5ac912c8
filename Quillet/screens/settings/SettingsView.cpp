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

namespace {

QLabel* footerLine(const QString& text, QWidget* parent) {
    auto* line = platform::makeLabel(text, platform::TextStyle::Footnote, parent, QPalette::PlaceholderText);
    line->setContentsMargins(14, 0, 14, 0); // as the headings
    return line;
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
    , m_actionHandler(&actionHandler) {
    auto* form = new platform::GroupedForm(this);
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(form);
    const auto add = [this](QVBoxLayout& section, const QString& title, const SettingsRow::Icon& icon,
                            std::function<void()> action) {
        auto* row = new SettingsRow(title, icon);
        connect(row, &QAbstractButton::clicked, this, std::move(action));
        section.addWidget(row);
        return row;
    };
    const auto page = [this](const QString& address) { return [this, address] { openPage(QUrl(address)); }; };

    auto* theme = add(form->addSection(QStringLiteral("EDITOR")), QStringLiteral("Theme"),
                      {QStringLiteral("paintpalette.fill"), Asset::SystemOrange},
                      [this] { m_actionHandler->showThemePicker(); });
    add(form->addSection(QStringLiteral("ADVANCED")), QStringLiteral("Data"),
        {QStringLiteral("cloud.fill"), Asset::Purple}, [this] { m_actionHandler->showDataStatus(); });
    auto& developer = form->addSection(QStringLiteral("DEVELOPER"));
    add(developer, QStringLiteral("Help"), {QStringLiteral("questionmark.circle"), Asset::BlueStart},
        [this] { m_actionHandler->showHelpMail(); });
    add(developer, QStringLiteral("Website"), {QStringLiteral("safari"), Asset::GreenStart},
        page(deployment::website));
    add(form->addSection(QStringLiteral("OTHER APPS")), deployment::otherAppName,
        {QStringLiteral("app.badge.fill"), Asset::SystemGray, deployment::otherAppImage},
        page(deployment::otherAppPage));

    auto footer = std::make_unique<QWidget>();
    auto* lines = new QVBoxLayout(footer.get());
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(2);
    auto* original = footerLine({}, footer.get());
    lines->addWidget(footerLine(versionLine(), footer.get()));
    lines->addWidget(original);
    form->addWidget(std::move(footer));

    m_subscriptions.push_back(
        m_viewModel->currentTheme.observe([theme](const QString& name) { theme->setDetail(name); }));
    m_subscriptions.push_back(
        m_viewModel->originalDownload.observe([original](const std::optional<QString>& version) {
            original->setText(QStringLiteral("Original Download: ") + version.value_or(QString()));
            original->setVisible(version.has_value());
        }));
}

} // namespace quillet
