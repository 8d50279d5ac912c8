#pragma once

#include <QtCore/QString>

#include <functional>

class QWidget;

namespace platform {

// Asks the user where to save a file, which is called `fileName` at first: in the desktop portal's dialog,
// where there is one, else in the toolkit's, over `window`. Returns at once. `chosen` gets an absolute path,
// or an empty one where the place is no folder of this machine; it is not called if the user thinks better of
// it. Main thread.
void askWhereToSave(QWidget& window, const QString& fileName,
                    std::function<void(const QString& path)> chosen);

} // namespace platform
