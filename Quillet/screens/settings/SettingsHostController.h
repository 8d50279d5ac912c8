#pragma once

#include "Quillet/screens/details/SearchSelectViewController.h"
#include "Quillet/screens/settings/SettingsActionHandler.h"
#include "Quillet/screens/settings/SettingsViewModel.h"
#include "platform/screens/controllers/ViewController.h"

namespace platform {
class HostingController;
}

namespace quillet {

class SettingsView;

// The settings: does what its view asks for. Main thread.
class SettingsHostController : public platform::ViewController,
                               public SettingsActionHandler,
                               public SearchSelectDelegate {
    Q_OBJECT

public:
    explicit SettingsHostController(QWidget* parent = nullptr);

    // Told of another theme, once it is stored.
    std::function<void(const QString&)> onTheme;

    SettingsView& settingsView() { return *m_settingsView; }

    void updateFontSize(int size) override;
    void showHelpMail() override;
    void showThemePicker() override;
    void showDataStatus() override;
    void pickFont() override;

    void didSelectTheme(const QString& theme) override;

protected:
    void viewDidLoad() override;
    void viewDidAppear(platform::Animated animated) override;

private:
    void didClose() { dismiss(); }

    void takeFont(const QFont& font);
    void readTransaction();

    SettingsViewModel m_viewModel;
    platform::HostingController* m_hostingController = nullptr;
    SettingsView* m_settingsView = nullptr; // hosted by the former
    bool m_hasAskedForTransaction = false;
};

} // namespace quillet
