#pragma once

#include "Tessarine/syntax/highlighting/TreeSitterSyntaxHighlighter.h"
#include "Tessarine/syntax/highlighting/tests/SampleTheme.h"
#include "Tessarine/syntax/tests/SampleDocument.h"

#include <memory>

namespace tessarine {

// A document with a highlighter whose theme gives every capture a colour made of its name.
struct HighlightedDocument : SampleDocument {
    template <class... Arguments>
    explicit HighlightedDocument(Arguments&&... arguments)
        : SampleDocument(std::forward<Arguments>(arguments)...) {
        theme->otherColors = SampleTheme::colorOf;
        highlighter->setTheme(theme);
    }

    // A range of the document with the default attributes.
    LineSyntaxHighlighterInput input(const TextRange& range) const {
        auto string = std::make_shared<AttributedString>(stringView->substring(range.location, range.length));
        highlighter->setDefaultAttributes(*string);
        return {.attributedString = std::move(string),
                .byteRange = {ByteCount::ofCodeUnits(range.location), ByteCount::ofCodeUnits(range.length)}};
    }

    LineSyntaxHighlighterInput inputOfAll() const { return input({0, stringView->length()}); }

    AttributedString highlighted(const TextRange& range) const {
        const auto line = input(range);
        highlighter->syntaxHighlight(line);
        return *line.attributedString;
    }

    AttributedString highlighted() const { return highlighted({0, stringView->length()}); }

    TextRange rangeOfRow(std::int64_t row) const {
        const DocumentLineNode& line = lineManager->lineAtRow(row);
        return {.location = line.location(), .length = line.data().totalLength()};
    }

    const std::shared_ptr<SampleTheme> theme = std::make_shared<SampleTheme>();
    std::shared_ptr<LineSyntaxHighlighter> highlighter = mode->createLineSyntaxHighlighter();
};

} // namespace tessarine
