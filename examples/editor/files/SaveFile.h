#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "examples/editor/files/FileFormat.h"
#include "examples/editor/files/FileIdentity.h"

#include <QtCore/QString>

#include <expected>
#include <optional>

namespace tessarine::editor {

struct SaveRequest {
    enum class Overwrite { known, anything };

    QString path;
    TextSnapshot text;
    FileFormat format;
    std::optional<FileIdentity> known; // what the text was last read from or written to; nothing for no file
    Overwrite overwrite = Overwrite::known;
};

struct SaveError {
    enum class Kind {
        changedOnDisk, // the file is not the known one
        unencodable,   // the format does not have all of the text
        failed,
    };

    Kind kind;
    QString message;             // a sentence for whoever wanted to save
    FileFormat alternative = {}; // of an unencodable text: a format that has all of it
};

// Puts the text in the place of the file in one step: whoever reads meanwhile gets the old or the new one
// whole, and after an error the old one is there. Links are followed, permissions kept. Blocks; any thread.
std::expected<FileIdentity, SaveError> saveFile(const SaveRequest& request);

} // namespace tessarine::editor
