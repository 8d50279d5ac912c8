#pragma once

#include <QtCore/QString>

namespace platform {

// Waits until a file or a folder is on the disk: a file's contents, or a folder's list of names, so that a
// file made, renamed or removed there stays so over a power cut. False where that fails.
[[nodiscard]] bool syncToDisk(const QString& path);

} // namespace platform
