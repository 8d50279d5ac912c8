#pragma once

#include "Quillet/screens/settings/SettingsViewModel.h"

#include <QtWidgets/QWidget>

#include <functional>
#include <vector>

class QUrl;

namespace quillet {

class SettingsActionHandler;

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

private:
    SettingsViewModel* m_viewModel;
    SettingsActionHandler* m_actionHandler;
    std::vector<platform::Subscription> m_subscriptions;
};

} // namespace quillet
