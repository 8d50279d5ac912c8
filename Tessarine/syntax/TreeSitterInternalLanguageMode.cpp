#include "Tessarine/syntax/TreeSitterInternalLanguageMode.h"

#include "Tessarine/document/IndentLevelMeasurer.h"
#include "Tessarine/syntax/PreferredUtf16Encoding.h"
#include "Tessarine/syntax/TreeSitterIndentController.h"
#include "Tessarine/syntax/TreeSitterIndentStrategyDetector.h"
#include "Tessarine/syntax/TreeSitterLayerParser.h"
#include "Tessarine/syntax/highlighting/TreeSitterSyntaxHighlighter.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tessarine {

namespace {

constexpr std::int64_t mostUnits = std::numeric_limits<std::uint32_t>::max() / 2;

TreeSitterInputEdit inputEdit(const LanguageModeTextChange& change) {
    const ByteCount start = change.byteRange.location;
    return {.startByte = start,
            .oldEndByte = start + change.byteRange.length,
            .newEndByte = start + change.newByteCount,
            .startPoint = TreeSitterTextPoint(change.startLinePosition),
            .oldEndPoint = TreeSitterTextPoint(change.oldEndLinePosition),
            .newEndPoint = TreeSitterTextPoint(change.newEndLinePosition)};
}

std::int64_t unitsBefore(const LanguageModeTextChange& change) {
    return (change.byteRange.location + change.byteRange.length).value() / 2;
}

const TreeSitterIndentationScopes* indentationScopes(const TreeSitterLayerAndNode& place) {
    if (!place.layer || !place.layer->language()->indentationScopes) return nullptr;
    return &*place.layer->language()->indentationScopes;
}

TextLocation textLocation(TreeSitterTextPoint point) {
    return {.lineNumber = point.row(), .column = point.column() / 2};
}

} // namespace

std::shared_ptr<TreeSitterInternalLanguageMode> TreeSitterInternalLanguageMode::create(
    const TreeSitterLanguageMode& languageMode, std::shared_ptr<const StringView> stringView,
    std::shared_ptr<LineManager> lineManager, std::shared_ptr<MainExecutor> mainExecutor) {
    const std::shared_ptr<TreeSitterInternalLanguageMode> mode(new TreeSitterInternalLanguageMode( // NOLINT
        languageMode, std::move(stringView), std::move(lineManager), std::move(mainExecutor)));
    mode->m_parser.setDelegate(mode);
    return mode;
}

TreeSitterInternalLanguageMode::TreeSitterInternalLanguageMode(const TreeSitterLanguageMode& languageMode,
                                                               std::shared_ptr<const StringView> stringView,
                                                               std::shared_ptr<LineManager> lineManager,
                                                               std::shared_ptr<MainExecutor> mainExecutor)
    : m_stringView(std::move(stringView))
    , m_lineManager(std::move(lineManager))
    , m_language(languageMode.language()->internalLanguage())
    , m_languageProvider(languageMode.languageProvider())
    , m_reparseBudget(languageMode.reparseBudget())
    , m_parser(preferredUTF16Encoding)
    , m_layers(std::make_shared<const TreeSitterLanguageLayer>(m_language))
    , m_mainExecutor(std::move(mainExecutor))
    , m_operationQueue("TreeSitterLanguageMode")
    , m_highlightQueue("TreeSitterHighlights") {}

void TreeSitterInternalLanguageMode::parse(const TextSnapshot& text) {
    forgetLayers();
    if (text.length() > mostUnits) return;
    const ParseLimit unlimited;
    TreeSitterLayerParser layers(m_parser, text, m_languageProvider.get(), unlimited);
    m_layers = TreeSitterLanguageLayers(layers.parse(m_language));
}

void TreeSitterInternalLanguageMode::parse(const TextSnapshot& text, ParseCompletion completion) {
    cancelBackgroundWork();
    LayerParseTask task{.text = text.length() > mostUnits ? TextSnapshot() : text,
                        .languageProvider = m_languageProvider,
                        .root = m_layers.root(),
                        .edits = {},
                        .isWhole = true};
    startBackgroundParse(std::move(task), std::move(completion));
}

LineChangeSet TreeSitterInternalLanguageMode::textDidChange(const LanguageModeTextChange& change) {
    if (std::max(m_stringView->length(), unitsBefore(change)) > mostUnits) {
        forgetLayers();
        return {};
    }
    m_layers.apply(inputEdit(change));
    if (!m_backgroundParse) return bringUpToText();
    if (!m_backgroundParse->isWhole) restartBackgroundParse();
    return linesOf(rangesTouched(std::span(m_layers.edits()).last(1)), m_layers.edits().size());
}

// Reparses here and now if there is time, else in the background. The lines of what has changed so far.
LineChangeSet TreeSitterInternalLanguageMode::bringUpToText() {
    LineChangeSet changes;
    if (!m_reparseBudget) {
        reparse(ParseLimit(), changes);
        return changes;
    }
    if (m_lastReparseWasInBudget && reparse(ParseLimit(*m_reparseBudget), changes)) return changes;
    m_lastReparseWasInBudget = false;
    reparseInBackground();
    return linesTouched(m_layers.edits().size());
}

// False, and nothing is changed, if the limit was reached.
bool TreeSitterInternalLanguageMode::reparse(const ParseLimit& limit, LineChangeSet& changes) {
    const TextSnapshot text = m_stringView->snapshot();
    TreeSitterLayerParser layers(m_parser, text, m_languageProvider.get(), limit);
    const auto edits = coalesced(m_layers.edits());
    auto root = layers.apply(m_layers.root(), edits);
    if (!root) return false;
    const std::size_t editCount = m_layers.edits().size();
    changes.unionWith(linesOf(layers.takeChangedRanges(), editCount));
    // Of the last edit alone the lines are known to whoever made it.
    if (editCount > 1) changes.unionWith(linesTouched(editCount));
    m_layers = TreeSitterLanguageLayers(std::move(root));
    return true;
}

// A parse that is done and waits to be installed is not the queue's any more.
void TreeSitterInternalLanguageMode::cancelBackgroundWork() {
    m_operationQueue.cancelAllOperations();
    m_highlightQueue.cancelAllOperations();
    if (m_backgroundParse) m_backgroundParse->operation->cancel();
}

void TreeSitterInternalLanguageMode::restartBackgroundParse() {
    if (m_restarts == mostRestarts) return;
    ++m_restarts;
    m_backgroundParse->operation->cancel();
    reparseInBackground();
}

void TreeSitterInternalLanguageMode::reparseInBackground() {
    startBackgroundParse({.text = m_stringView->snapshot(),
                          .languageProvider = m_languageProvider,
                          .root = m_layers.root(),
                          .edits = coalesced(m_layers.edits()),
                          .isWhole = false},
                         nullptr);
}

void TreeSitterInternalLanguageMode::startBackgroundParse(LayerParseTask task, ParseCompletion completion) {
    const bool isWhole = task.isWhole;
    auto work = [mode = weak_from_this(), executor = m_mainExecutor, task = std::move(task),
                 completion =
                     std::move(completion)](const std::shared_ptr<const Operation>& operation) mutable {
        executor->post([mode = std::move(mode), operation, parsed = task.run(*operation),
                        completion = std::move(completion)]() mutable {
            const auto livingMode = mode.lock();
            const bool isParsed = !operation->isCancelled();
            if (livingMode && isParsed) livingMode->install(std::move(parsed));
            if (completion) completion(isParsed);
        });
    };
    m_backgroundParse = {.operation = m_operationQueue.add(std::move(work)),
                         .editCount = m_layers.edits().size(),
                         .isWhole = isWhole};
}

void TreeSitterInternalLanguageMode::install(ParsedLayers parsed) {
    const BackgroundParse done = *std::exchange(m_backgroundParse, std::nullopt);
    LineChangeSet changes = linesOf(std::move(parsed.changedRanges), done.editCount);
    if (!done.isWhole) {
        changes.unionWith(linesTouched(done.editCount));
        m_lastReparseWasInBudget = parsed.duration <= *m_reparseBudget;
    }
    m_restarts = 0;
    replaceLayers(std::move(parsed.root), done.editCount);
    const bool isBehind = !m_layers.edits().empty();
    if (isBehind) changes.unionWith(bringUpToText());
    if (done.isWhole && !isBehind) return; // whoever asked for it asks for everything now
    if (const auto delegate = m_delegate.lock()) delegate->treeSitterLanguageModeDidReparse(changes);
}

// Keeps the edits that the root does not know of. The old layers end in the background, as they may be large.
void TreeSitterInternalLanguageMode::replaceLayers(TreeSitterLanguageLayer::Reference root,
                                                   std::size_t editCount) {
    TreeSitterLanguageLayers layers(std::move(root));
    for (std::size_t i = editCount; i < m_layers.edits().size(); ++i)
        layers.apply(m_layers.edits()[i]);
    m_operationQueue.add([old = std::exchange(m_layers, std::move(layers))](const auto&) {});
}

void TreeSitterInternalLanguageMode::forgetLayers() {
    cancelBackgroundWork();
    m_backgroundParse.reset();
    m_restarts = 0;
    m_layers = TreeSitterLanguageLayers(std::make_shared<const TreeSitterLanguageLayer>(m_language));
}

// Of what the first edits put in.
LineChangeSet TreeSitterInternalLanguageMode::linesTouched(std::size_t editCount) const {
    return linesOf(rangesTouched(std::span(m_layers.edits()).first(editCount)), editCount);
}

// Of ranges of the text before the later edits.
LineChangeSet TreeSitterInternalLanguageMode::linesOf(std::vector<TreeSitterTextRange> ranges,
                                                      std::size_t firstLaterEdit) const {
    const auto laterEdits = std::span(m_layers.edits()).subspan(firstLaterEdit);
    LineChangeSet changes;
    for (const TreeSitterTextRange& range : ranges)
        markLines(rangeAfterEdits(range, laterEdits).range, changes);
    return changes;
}

// By bytes, not by rows: the parser takes nothing but LF for the end of a row.
void TreeSitterInternalLanguageMode::markLines(const TreeSitterTextRange& range,
                                               LineChangeSet& changes) const {
    const std::int64_t length = m_lineManager->documentLineTree().root().nodeTotalValue();
    DocumentLineNode* line = &m_lineManager->lineContaining(std::min(range.startByte().value() / 2, length));
    const DocumentLineNode& last =
        m_lineManager->lineContaining(std::min(range.endByte().value() / 2, length));
    for (; line != &last; line = &line->nextNode())
        changes.markLineEdited(*line);
    changes.markLineEdited(*line);
}

std::shared_ptr<LineSyntaxHighlighter> TreeSitterInternalLanguageMode::createLineSyntaxHighlighter() {
    return std::make_shared<TreeSitterSyntaxHighlighter>(m_stringView, shared_from_this());
}

std::optional<SyntaxNode> TreeSitterInternalLanguageMode::syntaxNode(const LinePosition& position) {
    const auto found = m_layers.layerAndNode(position);
    const auto type = found.node ? found.node->type() : std::nullopt;
    if (!type) return std::nullopt;
    return SyntaxNode{.type = std::string(*type),
                      .startLocation = textLocation(found.node->startPoint()),
                      .endLocation = textLocation(found.node->endPoint())};
}

std::int64_t TreeSitterInternalLanguageMode::currentIndentLevel(const DocumentLineNode& line,
                                                                const IndentStrategy& strategy) const {
    return IndentLevelMeasurer(*m_stringView)
        .indentLevel(line.location(), line.data().totalLength(), strategy.tabLength());
}

// A language without scopes does not indent, not even as deep as the line before.
InsertLineBreakIndentStrategy TreeSitterInternalLanguageMode::strategyForInsertingLineBreak(
    const LinePosition& start, const LinePosition& end, const IndentStrategy& strategy) {
    const auto atStart = m_layers.layerAndNode(start);
    const auto atEnd = m_layers.layerAndNode(end);
    const auto* scopes = indentationScopes(atStart);
    if (!scopes) scopes = indentationScopes(atEnd);
    if (!scopes) return {};
    return TreeSitterIndentController(*scopes, *m_stringView, *m_lineManager, strategy.tabLength())
        .strategyForInsertingLineBreak(atStart.node, atEnd.node, start, end);
}

DetectedIndentStrategy TreeSitterInternalLanguageMode::detectIndentStrategy() {
    const TreeSitterTree* tree = m_layers.rootTree();
    if (!tree) return DetectedIndentStrategy::unknown();
    return TreeSitterIndentStrategyDetector(*m_lineManager, *tree, *m_stringView).detect();
}

std::optional<TreeSitterTextProviderResult>
TreeSitterInternalLanguageMode::parserBytesAt(ByteCount byteIndex) {
    const auto delegate = m_delegate.lock();
    return delegate ? delegate->treeSitterLanguageMode(byteIndex) : std::nullopt;
}

} // namespace tessarine
