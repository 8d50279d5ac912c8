#include "Tessarine/document/IndentLevelMeasurer.h"
#include "Tessarine/syntax/TreeSitterIndentController.h"
#include "Tessarine/syntax/tests/RandomSource.h"
#include "Tessarine/syntax/tests/SampleDocument.h"
#include "languages/grammars/Grammars.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace tessarine;

namespace {

std::shared_ptr<const TreeSitterLanguage> language(std::string_view grammar,
                                                   std::optional<TreeSitterIndentationScopes> scopes,
                                                   std::string injections = "") {
    std::optional<TreeSitterLanguage::Query> query;
    if (!injections.empty()) query = TreeSitterLanguage::Query(std::move(injections));
    return std::make_shared<const TreeSitterLanguage>(languages::grammarNamed(grammar), std::nullopt, query,
                                                      std::move(scopes));
}

const TreeSitterIndentationScopes cScopes{.indent = {"compound_statement", "initializer_list", "{"},
                                          .inheritIndent = {"if_statement"},
                                          .outdent = {"}", "end"},
                                          .whitespaceDenotesBlocks = false};
const TreeSitterIndentationScopes pythonScopes{.indent = {"function_definition", "if_statement", "block"},
                                               .inheritIndent = {},
                                               .outdent = {},
                                               .whitespaceDenotesBlocks = true};

// The text with the selection between two marks, or at one.
struct Marked {
    explicit Marked(std::u16string marked)
        : text(std::move(marked)) {
        start = takeMark();
        const auto second = text.find(u'|');
        end = second == std::u16string::npos ? start : takeMark();
    }

    std::int64_t takeMark() {
        const auto at = text.find(u'|');
        text.erase(at, 1);
        return static_cast<std::int64_t>(at);
    }

    std::u16string text;
    std::int64_t start;
    std::int64_t end;
};

InsertLineBreakIndentStrategy
lineBreak(std::u16string marked, std::shared_ptr<const TreeSitterLanguage> language,
          std::shared_ptr<const TreeSitterLanguageProvider> provider = nullptr) {
    const Marked selection(std::move(marked));
    const SampleDocument document(selection.text, std::move(language), std::move(provider));
    document.mode->parse(document.stringView->snapshot());
    return document.mode->strategyForInsertingLineBreak(
        document.lineManager->linePosition(selection.start).value(),
        document.lineManager->linePosition(selection.end).value(), IndentStrategy::space(2));
}

InsertLineBreakIndentStrategy inC(std::u16string marked) {
    return lineBreak(std::move(marked), language("C", cScopes));
}

InsertLineBreakIndentStrategy inPython(std::u16string marked) {
    return lineBreak(std::move(marked), language("Python", pythonScopes));
}

using Break = InsertLineBreakIndentStrategy;

TEST(TreeSitterIndentation, GoesOneLevelDeeperBehindAnOpener) {
    EXPECT_EQ(inC(u"int f() {|\n}"), (Break{1, false}));
    EXPECT_EQ(inC(u"int f() {|}"), (Break{1, true}));
    EXPECT_EQ(inC(u"int f() {\n  if (a) {|}\n}"), (Break{2, true}));
    EXPECT_EQ(inC(u"int f() {| g();\n}"), (Break{1, false}));
    EXPECT_EQ(inC(u"int f() {|g(); }|"), (Break{1, false}));
    EXPECT_EQ(inC(u"int f() { { {|\n}}}"), (Break{1, false})) << "three openers are one level";
}

TEST(TreeSitterIndentation, IsNotOpenedFromTheColumnOfTheOpenerOn) {
    EXPECT_EQ(inC(u"|{}"), (Break{0, false}));
    EXPECT_EQ(inC(u"int f()|{\n}"), (Break{0, false}));
}

TEST(TreeSitterIndentation, KeepsTheLevelOfTheLineElsewhere) {
    EXPECT_EQ(inC(u"int f() {\n  g();|\n}"), (Break{1, false}));
    EXPECT_EQ(inC(u"int f() {\n    g();\n  |}"), (Break{1, false}));
    EXPECT_EQ(inC(u"int f() {\n    g(|);\n    h();|\n}"), (Break{2, false}));
    EXPECT_EQ(inC(u"int f() {\n\tg();\n}\n|"), (Break{0, false}));
    EXPECT_EQ(inC(u"|"), (Break{0, false}));
}

TEST(TreeSitterIndentation, StartsAtTheDeepestNodeWhereWhitespaceMakesBlocks) {
    EXPECT_EQ(inPython(u"def f():|"), (Break{1, false}));
    EXPECT_EQ(inPython(u"def f():\n  if a:|\n    g()"), (Break{2, false}));
    EXPECT_EQ(inPython(u"def f():\n  if a:\n    g()|"), (Break{3, false})) << "a block began in this row";
    EXPECT_EQ(inPython(u"a = 1|\n"), (Break{0, false}));
}

TEST(TreeSitterIndentation, DoesWithoutScopes) {
    EXPECT_EQ(lineBreak(u"{\n    a;|\n}", language("C", std::nullopt)), (Break{0, false}));
}

TEST(TreeSitterIndentation, TakesTheScopesOfTheInnermostLanguage) {
    const auto languages = std::make_shared<SampleLanguages>();
    languages->add("javascript",
                   language("JavaScript", TreeSitterIndentationScopes{.indent = {"statement_block"},
                                                                      .inheritIndent = {},
                                                                      .outdent = {"}"},
                                                                      .whitespaceDenotesBlocks = false}));
    const auto html = language("HTML", std::nullopt, "(script_element (raw_text) @javascript)");
    EXPECT_EQ(lineBreak(u"<script>\n  if (a) {|}\n</script>", html, languages), (Break{2, true}));
    EXPECT_EQ(lineBreak(u"<p>\n  {|}\n</p>", html, languages), (Break{0, false}));
}

// The same decided step by step, with every node asked for its parent and its siblings.
class NaiveController {
public:
    NaiveController(const TreeSitterIndentationScopes& scopes, const SampleDocument& document)
        : m_scopes(scopes)
        , m_document(document) {}

    Break strategy(const TreeSitterNode& start, const TreeSitterNode& end, const LinePosition& startPosition,
                   const LinePosition& endPosition) const {
        const auto increasing = increasingNode(start, startPosition);
        const auto decreasing = decreasingNode(end, endPosition);
        const std::int64_t increase = increasing ? std::max<std::int64_t>(adjustment(*increasing), 0) + 1 : 0;
        const std::int64_t decrease = decreasing ? std::min<std::int64_t>(adjustment(*decreasing), 0) - 1 : 0;
        if (increase > 0) return {level(increasing->startPoint().row()) + 1, decrease < 0};
        if (decrease == 0) return {level(startPosition.row), false};
        TreeSitterNode outermost = *decreasing;
        while (outermost.parent() && outermost.parent()->startPoint().row() == decreasing->startPoint().row())
            outermost = *outermost.parent();
        return {level(outermost.startPoint().row()), false};
    }

private:
    static bool isOneOf(const TreeSitterNode& node, const std::vector<std::string>& types) {
        return std::ranges::find(types, *node.type()) != types.end();
    }

    static bool isOnRow(const std::optional<TreeSitterNode>& node, std::int64_t row) {
        return node && node->startPoint().row() == row;
    }

    std::optional<TreeSitterNode> increasingNode(TreeSitterNode start, const LinePosition& position) const {
        if (m_scopes.whitespaceDenotesBlocks) {
            const auto deepest = deepestChild(start, TreeSitterTextPoint(position));
            if (!deepest) return std::nullopt;
            start = *deepest;
        }
        std::optional<TreeSitterNode> node = start;
        while (isOnRow(node, position.row)) {
            const bool opens = isOneOf(*node, m_scopes.indent) || isOneOf(*node, m_scopes.inheritIndent);
            if (opens && node->startPoint().column() / 2 < position.column) return node;
            node = node->parent();
        }
        return std::nullopt;
    }

    std::optional<TreeSitterNode> decreasingNode(std::optional<TreeSitterNode> node,
                                                 const LinePosition& position) const {
        for (; isOnRow(node, position.row); node = node->parent())
            if (isOneOf(*node, m_scopes.outdent) && node->startPoint().column() >= position.column)
                return node;
        return std::nullopt;
    }

    static std::optional<TreeSitterNode> deepestChild(const TreeSitterNode& node, TreeSitterTextPoint point) {
        if (point < node.startPoint() || node.endPoint() < point) return std::nullopt;
        for (std::int64_t i = node.childCount() - 1; i >= 0; --i)
            if (const auto deepest = deepestChild(node.child(i).value(), point)) return deepest;
        return node;
    }

    std::int64_t adjustment(const TreeSitterNode& node) const {
        std::int64_t sum = 0;
        for (auto next = node.nextSibling(); isOnRow(next, node.startPoint().row());
             next = next->nextSibling()) {
            if (isOneOf(*next, m_scopes.indent)) ++sum;
            if (isOneOf(*next, m_scopes.outdent)) --sum;
        }
        return sum;
    }

    std::int64_t level(std::int64_t row) const {
        const DocumentLineNode& line = m_document.lineManager->lineAtRow(row);
        return IndentLevelMeasurer(*m_document.stringView)
            .indentLevel(line.location(), line.data().totalLength(), 2);
    }

    const TreeSitterIndentationScopes& m_scopes;
    const SampleDocument& m_document;
};

void expectTheNaiveAnswers(std::u16string_view text, std::string_view grammar,
                           const TreeSitterIndentationScopes& scopes) {
    SampleDocument document(text, language(grammar, scopes), nullptr);
    document.parse();
    RandomSource random(7);
    for (int i = 0; i < 2'000; ++i) {
        const std::int64_t start = random.below(document.stringView->length() + 1);
        const std::int64_t end =
            std::min(start + (i % 3 == 0 ? random.below(60) : 0), document.stringView->length());
        const LinePosition from = document.lineManager->linePosition(start).value();
        const LinePosition to = document.lineManager->linePosition(end).value();
        const auto startNode = document.mode->layers().layerAndNode(from).node;
        const auto endNode = document.mode->layers().layerAndNode(to).node;
        const TreeSitterIndentController controller(scopes, *document.stringView, *document.lineManager, 2);
        ASSERT_EQ(controller.strategyForInsertingLineBreak(startNode, endNode, from, to),
                  NaiveController(scopes, document).strategy(startNode.value(), endNode.value(), from, to))
            << "from " << start << " to " << end;
    }
}

TEST(TreeSitterIndentation, AnswersAsTheNaiveWayDoes) {
    expectTheNaiveAnswers(u"int f(int a) { if (a) { return 1; } else\n  { g(a); } }\n"
                          u"  struct s x = { { 1, 2 }, {\n    3 } };  }\nint g() {{ }} // {\n",
                          "C", cScopes);
    expectTheNaiveAnswers(u"def f(a):\n  if a: return 1\n  for b in a:\n    g(b); h()\n\nx = [\n 1,\n]\n",
                          "Python", pythonScopes);
}

// Walks of all parents from each parent, or a call for each level, would end in minutes or in a full stack.
TEST(TreeSitterIndentation, WithstandsDeepNesting) {
    const std::u16string open(100'000, u'[');
    for (const bool whitespaceDenotesBlocks : {false, true}) {
        const TreeSitterIndentationScopes scopes{.indent = {"none"},
                                                 .inheritIndent = {},
                                                 .outdent = {"none"},
                                                 .whitespaceDenotesBlocks = whitespaceDenotesBlocks};
        EXPECT_EQ(lineBreak(u"  " + open + u"|", language("JSON", scopes)), (Break{1, false}));
    }
}

DetectedIndentStrategy detected(std::u16string_view text) {
    SampleDocument document(text, "c");
    document.parse();
    return document.mode->detectIndentStrategy();
}

std::u16string repeated(int count, std::u16string_view line) {
    std::u16string text;
    for (int i = 0; i < count; ++i)
        text += line;
    return text;
}

TEST(TreeSitterIndentDetection, CountsTheIndentedLinesOfAShortText) {
    EXPECT_EQ(detected(u"a {\n  b;\n  c;\n    d;\n}"), DetectedIndentStrategy::space(2));
    EXPECT_EQ(detected(u"a {\n\tb;\n\tc;\n  d;\n}"), DetectedIndentStrategy::tab());
    EXPECT_EQ(detected(u"a {\n\tb;\n  c;\n}"), DetectedIndentStrategy::space(2)) << "spaces win a tie";
    EXPECT_EQ(detected(u"a {\n  b;\n  c;\n  d;\n"), DetectedIndentStrategy::unknown());
    EXPECT_EQ(detected(u"a {\n b;\n c;\n}"), DetectedIndentStrategy::unknown());
    EXPECT_EQ(detected(u"a;\n    b;\n      c;\n   d;"), DetectedIndentStrategy::space(3));
    EXPECT_EQ(detected(u""), DetectedIndentStrategy::unknown());
}

TEST(TreeSitterIndentDetection, StopsAtTwentyLinesWithContent) {
    EXPECT_EQ(detected(repeated(20, u"\ta;\n") + repeated(30, u"  b;\n")), DetectedIndentStrategy::tab());
    EXPECT_EQ(detected(repeated(19, u"\ta;\n") + repeated(30, u"  b;\n")), DetectedIndentStrategy::tab());
    EXPECT_EQ(detected(repeated(25, u"\n\ta;\n")), DetectedIndentStrategy::tab());
}

TEST(TreeSitterIndentDetection, LooksOnWhereNothingIsIndented) {
    EXPECT_EQ(detected(repeated(150, u"a;\n") + u"    b;\n"), DetectedIndentStrategy::space(4));
    EXPECT_EQ(detected(repeated(150, u"a;\n")), DetectedIndentStrategy::unknown());
}

TEST(TreeSitterIndentDetection, LeavesOutComments) {
    const std::u16string comments = repeated(90, u"// c\n") + u"/*\n" + repeated(9, u"   c\n") + u"*/\n";
    EXPECT_EQ(detected(comments + u"a {\n\tb;\n}\n"), DetectedIndentStrategy::tab());
    EXPECT_EQ(detected(u"a {\n\tb;\n}\n// c"), DetectedIndentStrategy::unknown());
}

} // namespace
