#pragma once

#include "Quillet/screens/settings/SettingsViewModel.h"

#include <QtCore/QLocale>
#include <QtWidgets/QWidget>

#include <functional>
#include <vector>

class QUrl;
class QVBoxLayout;

namespace platform {
class GroupedForm;
}

namespace quillet {

class SettingsActionHandler;
class SettingsRow;

// The version of the program and of its build, for the footer and for the mail for help.
QString versionLine();

// The rows of the settings; what they do is their handler's. Main thread.
class SettingsView : public QWidget {
    Q_OBJECT

public:
    // Both outlive this.
    SettingsView(SettingsViewModel& viewModel, SettingsActionHandler& actionHandler,
                 QWidget* parent = nullptr);

    // Opens a page of the web, in the user's browser unless it is set.
    std::function<void(const QUrl&)> openPage;

    // Of numbers. Declared state without effect: no row shows one.
    const QLocale formatter;

private:
    void addEditor();
    void addAdvanced();
    void addDeveloper();
    void addOtherApps();
    void addFooter();

    // A card whose rows reach from edge to edge.
    QVBoxLayout& addSection(const QString& heading);
    SettingsRow& addRow(QVBoxLayout& section, std::unique_ptr<SettingsRow> row, std::function<void()> action);
    std::function<void()> opening(const QString& page);

    SettingsViewModel* m_viewModel;
    SettingsActionHandler* m_actionHandler;
    platform::GroupedForm* m_form;
    std::vector<platform::Subscription> m_subscriptions;
};

} // namespace quillet
