#pragma once

#include "Tessarine/theme/Theme.h"

#include <QtCore/QString>
#include <QtGui/QPalette>

#include <memory>
#include <vector>

namespace tessarine::editor {

struct ThemeName {
    QString id; // in settings
    QString title;
};

// The themes that one can choose from; the first is the default.
const std::vector<ThemeName>& themeNames();

// How a window looks: the text by a theme, everything around it by colours that go with it.
struct EditorLook {
    std::shared_ptr<const Theme> theme;
    QPalette palette;
    Color backgroundColor;
    Color selectionColor;
    Color matchColor; // of what was found
    UserInterfaceStyle style;
};

// An unknown id is that of the default theme, which is light or dark as the desktop is.
EditorLook editorLook(const QString& themeId, int zoomPoints);

} // namespace tessarine::editor
