#include "Tessarine/syntax/highlighting/TreeSitterSyntaxHighlighter.h"

#include "Tessarine/syntax/highlighting/TreeSitterSyntaxHighlightToken.h"

#include <expected>

namespace tessarine {

namespace {

using Error = TreeSitterSyntaxHighlighterError;
using Captures = std::expected<std::vector<HighlightCapture>, Error>;

// The search in the background, with all that it needs.
struct CaptureSearch {
    TreeSitterLanguageLayers layers;
    TextSnapshot text;
    ByteRange byteRange;

    Captures run(const Operation& operation) {
        if (operation.isCancelled()) return std::unexpected(Error::Cancelled);
        auto captures = highlightCaptures(layers, byteRange, text, ParseLimit(operation));
        if (operation.isCancelled()) return std::unexpected(Error::Cancelled);
        return captures;
    }
};

} // namespace

bool TreeSitterSyntaxHighlighter::canHighlight() const {
    return m_languageMode->layers().root()->tree() != nullptr;
}

void TreeSitterSyntaxHighlighter::syntaxHighlight(const LineSyntaxHighlighterInput& input) {
    apply(highlightCaptures(m_languageMode->layers(), input.byteRange, m_stringView->snapshot(), {}), input);
}

void TreeSitterSyntaxHighlighter::syntaxHighlight(LineSyntaxHighlighterInput input, Completion completion) {
    CaptureSearch search{
        .layers = m_languageMode->layers(), .text = m_stringView->snapshot(), .byteRange = input.byteRange};
    auto work = [highlighter = weak_from_this(), executor = m_languageMode->mainExecutor(),
                 search = std::move(search), input = std::move(input), completion = std::move(completion)](
                    const std::shared_ptr<const Operation>& operation) mutable {
        auto captures = highlighter.expired() ? Captures(std::unexpected(Error::OperationDeallocated))
                                              : search.run(*operation);
        executor->post([highlighter = std::move(highlighter), operation, captures = std::move(captures),
                        input = std::move(input), completion = std::move(completion)]() mutable {
            if (captures && operation->isCancelled()) captures = std::unexpected(Error::Cancelled);
            const auto living = highlighter.lock();
            if (captures && !living) captures = std::unexpected(Error::OperationDeallocated);
            if (!captures) return completion(std::unexpected(captures.error()));
            living->apply(*captures, input);
            completion({});
        });
    };
    m_currentOperation = m_languageMode->highlightQueue().add(std::move(work));
}

void TreeSitterSyntaxHighlighter::cancel() {
    if (m_currentOperation) m_currentOperation->cancel();
    m_currentOperation.reset();
}

void TreeSitterSyntaxHighlighter::apply(std::span<const HighlightCapture> captures,
                                        const LineSyntaxHighlighterInput& input) const {
    applyTokens(highlightTokens(captures, input.byteRange, *theme()), theme()->font(),
                *input.attributedString);
}

} // namespace tessarine
