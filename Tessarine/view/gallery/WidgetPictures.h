#pragma once

class QDir;

namespace tessarine {

// Pictures of the widget, light and dark, with invisible characters and a selection or a caret. False if they
// could not be written.
bool saveWidgetPictures(const QDir& folder);

} // namespace tessarine
