#pragma once

#include <QtCore/QList>
#include <QtCore/QRect>
#include <QtCore/QString>

#include <optional>

namespace quillet {

// Where a window was and how it was divided. All in points.
struct WindowGeometry {
    QRect normal; // without the frame; as it is neither maximised nor minimised
    bool isMaximized = false;
    int primaryWidth = 0; // of the sidebar

    bool operator==(const WindowGeometry&) const = default;

    // Where such a window can be reached on these screens, the first of which is the main one. One of which
    // too little would be seen to be taken by its title bar goes to the middle of the main screen, and no
    // window is larger than its screen. Without any screen nothing changes.
    WindowGeometry broughtBack(const QList<QRect>& screens) const;
};

// The file that the last session of this machine left: $XDG_STATE_HOME/Quillet/Window.json, else below
// ~/.local/state.
QString windowGeometryPath();

// None if there is none, or it is damaged.
std::optional<WindowGeometry> readWindowGeometry(const QString& path);

// What cannot be written is forgotten: it is no more than a convenience.
void writeWindowGeometry(const QString& path, const WindowGeometry& geometry);

} // namespace quillet
