#pragma once

#include "Tessarine/editing/TextViewState.h"
#include "examples/editor/files/LoadFile.h"
#include "examples/editor/window/LanguageChoice.h"

#include <expected>
#include <memory>
#include <optional>

namespace tessarine::editor {

// A file with all that a text view needs of it.
struct OpenedDocument {
    std::unique_ptr<const TextViewState> state;
    std::optional<Language> language;
    FileFormat format;
    FileIdentity identity;
    bool isMalformed = false;
    bool isParsed = false;
};

struct OpenRequest {
    QString path;
    std::shared_ptr<const Theme> theme;
    std::shared_ptr<const TextMeasurer> measurer;
    std::shared_ptr<MainExecutor> mainExecutor;
};

// Reads the file, and parses it if it is not so long that its first sight would have to wait for that: then
// the state is of plain text, whatever the language is. Blocks; any thread.
std::expected<OpenedDocument, LoadError> openDocument(const OpenRequest& request);

} // namespace tessarine::editor
