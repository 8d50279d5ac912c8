#include "Quillet/screens/settings/SettingsViewModel.h"

#include "Quillet/core/KeyStore.h"
#include "Quillet/core/UserSettings.h"

namespace quillet {

SettingsViewModel::SettingsViewModel()
    : currentTheme(KeyStore::shared().codeTheme())
    , currentFontName(UserSettings::shared().fontDescriptor.value() ? UserSettings::shared().font().family()
                                                                    : QStringLiteral("default"))
    , currentFontSize(static_cast<int>(UserSettings::shared().fontSize.value())) {}

} // namespace quillet
