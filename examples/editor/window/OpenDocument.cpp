#include "examples/editor/window/OpenDocument.h"

namespace tessarine::editor {

namespace {

std::unique_ptr<const TextViewState> makeState(const OpenRequest& request, TextStore text,
                                               std::optional<Language> language) {
    if (!language) return std::make_unique<TextViewState>(std::move(text), request.theme, *request.measurer);
    return std::make_unique<TextViewState>(std::move(text), request.theme, *request.measurer,
                                           languageMode(*language), request.mainExecutor);
}

} // namespace

std::expected<OpenedDocument, LoadError> openDocument(const OpenRequest& request) {
    auto loaded = loadFile(request.path);
    if (!loaded) return std::unexpected(std::move(loaded.error()));
    DecodedFile& contents = loaded->contents;
    const auto language = languageOf(request.path, contents.text.text());
    return OpenedDocument{makeState(request, std::move(contents.text), language), language, contents.format,
                          loaded->identity, contents.isMalformed};
}

} // namespace tessarine::editor
