#pragma once

#include "examples/editor/files/FileDecoder.h"
#include "examples/editor/files/FileIdentity.h"

#include <QtCore/QString>

#include <cstdint>
#include <expected>

namespace tessarine::editor {

struct LoadedFile {
    DecodedFile contents;
    FileIdentity identity;
};

struct LoadError {
    enum class Kind {
        notFound,
        notAFile, // a folder, a device
        tooLarge,
        notText,
        failed,
    };

    Kind kind;
    QString message; // a sentence for whoever wanted the file
};

// Files of this size and above are not opened, in bytes.
inline constexpr std::int64_t fileSizeLimit = 1'000'000'000;

// Reads a file whole. One that is written meanwhile is read again, some times. Blocks; any thread.
std::expected<LoadedFile, LoadError> loadFile(const QString& path, std::int64_t sizeLimit = fileSizeLimit);

} // namespace tessarine::editor
