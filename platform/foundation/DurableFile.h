#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace platform {

// Who may read a file that is replaced.
enum class Readers {
    AsBefore, // whoever may read the old one; the user's mask decides for a new one
    OwnerOnly // mode 0600, from before the first byte is written
};

// Replaces the file at `path` as a whole, and makes its folders where they are missing. Once this returned
// true, the new bytes outlive a power cut; after false, and at every moment before, the file is the old or
// the new one. Blocks until the disk has answered.
bool replaceDurably(const QString& path, const QByteArray& bytes, Readers readers = Readers::AsBefore);

} // namespace platform
