#include "examples/editor/window/LineEndings.h"

#include "Tessarine/document/LineEndingDetector.h"

namespace tessarine::editor {

namespace {

// The delimiters that are others; of all kinds, rare ones included.
BatchReplaceSet conversions(const EditedDocument& document, std::u16string_view symbol) {
    BatchReplaceSet set;
    LineManager& lines = *document.lineManager;
    for (std::int64_t row = 0; row < lines.lineCount(); ++row) {
        const DocumentLineNode& line = lines.lineAtRow(row);
        const TextRange delimiter{line.location() + line.data().length(), line.data().delimiterLength()};
        if (delimiter.length == 0) continue;
        if (document.stringView->substring(delimiter.location, delimiter.length) != symbol)
            set.replacements.push_back({delimiter, std::u16string(symbol)});
    }
    return set;
}

} // namespace

QString displayName(LineEnding lineEnding) {
    switch (lineEnding) {
    case LineEnding::lf:
        return QStringLiteral("LF");
    case LineEnding::crlf:
        return QStringLiteral("CRLF");
    case LineEnding::cr:
        break;
    }
    return QStringLiteral("CR");
}

void convertLineEndings(TextView& view, LineEnding lineEnding) {
    view.setLineEndings(lineEnding);
    view.replaceText(conversions(view.document(), symbol(lineEnding)));
}

void followLineEndings(TextView& view) {
    const auto detected =
        LineEndingDetector(*view.document().lineManager, *view.document().stringView).detect();
    if (detected) view.setLineEndings(*detected);
}

} // namespace tessarine::editor
