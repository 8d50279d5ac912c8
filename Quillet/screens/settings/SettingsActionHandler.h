#pragma once

namespace quillet {

// What the settings screen asks for. No row asks for the first or the last.
class SettingsActionHandler {
public:
    virtual ~SettingsActionHandler() = default;

    virtual void updateFontSize(int size) = 0;
    virtual void showHelpMail() = 0;
    virtual void showThemePicker() = 0;
    virtual void showDataStatus() = 0;
    virtual void pickFont() = 0;
};

} // namespace quillet
