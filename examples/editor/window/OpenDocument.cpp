#include "examples/editor/window/OpenDocument.h"

namespace tessarine::editor {

namespace {

// In code units. A text of this length is parsed in some tens of milliseconds.
constexpr std::int64_t longText = 500'000;

std::unique_ptr<const TextViewState> plainState(const OpenRequest& request, TextStore text) {
    return std::make_unique<TextViewState>(std::move(text), request.theme, *request.measurer);
}

std::unique_ptr<const TextViewState> parsedState(const OpenRequest& request, TextStore text,
                                                 Language language) {
    return std::make_unique<TextViewState>(std::move(text), request.theme, *request.measurer,
                                           languageMode(language), request.mainExecutor);
}

} // namespace

std::expected<OpenedDocument, LoadError> openDocument(const OpenRequest& request) {
    auto loaded = loadFile(request.path);
    if (!loaded) return std::unexpected(std::move(loaded.error()));
    DecodedFile& contents = loaded->contents;
    const auto language = languageOf(request.path, contents.text.text());
    const bool isParsed = language && contents.text.text().length() <= longText;
    return OpenedDocument{isParsed ? parsedState(request, std::move(contents.text), *language)
                                   : plainState(request, std::move(contents.text)),
                          language,
                          contents.format,
                          loaded->identity,
                          contents.isMalformed,
                          isParsed};
}

} // namespace tessarine::editor
