#pragma once

#include "Quillet/screens/settings/DataStatsModel.h"
#include "platform/foundation/Observable.h"

#include <QtGui/QFont>

#include <optional>

namespace quillet {

// What the settings screen shows. Main thread.
struct SettingsViewModel {
    // As the settings are stored now.
    SettingsViewModel();

    DataStatsModel dataStatsModel; // for the mail for help
    platform::Observable<QString> currentTheme;
    platform::Observable<QString> currentFontName;
    platform::Observable<int> currentFontSize;
    platform::Observable<std::optional<QFont>> currentFont;
    // The version that the user obtained first; to be shown, and nothing depends on it.
    platform::Observable<std::optional<QString>> originalDownload;
};

} // namespace quillet
