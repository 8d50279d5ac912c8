#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace platform {

// Replaces the file at `path` as a whole, and makes its folders where they are missing. Once this returned
// true, the new bytes outlive a power cut; after false, and at every moment before, the file is the old or
// the new one. Blocks until the disk has answered.
bool replaceDurably(const QString& path, const QByteArray& bytes);

} // namespace platform
