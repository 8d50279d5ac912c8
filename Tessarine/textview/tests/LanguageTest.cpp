#include "Tessarine/syntax/PlainTextLanguageMode.h"
#include "Tessarine/syntax/TreeSitterLanguageMode.h"
#include "Tessarine/syntax/tests/SampleLanguages.h"
#include "Tessarine/textview/tests/ShownText.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

TreeSitterLanguageMode javascript() {
    const auto languages = SampleLanguages::shared();
    return TreeSitterLanguageMode(languages->treeSitterLanguage("javascript"), languages);
}

TEST(TextViewLanguage, ALanguageIsParsedInTheBackgroundAndFollowsEdits) {
    ShownText text(u"let a = 1;\n|");
    std::optional<bool> parsed;
    text.view->setLanguageMode(javascript(), [&](bool isParsed) { parsed = isParsed; });
    EXPECT_EQ(parsed, std::nullopt);
    text.executor->runNext();
    EXPECT_EQ(parsed, true);
    EXPECT_EQ(text.view->syntaxNode(8)->type, "number");
    text.view->insertText(u"'s'");
    EXPECT_EQ(text.view->syntaxNode(12)->startLocation, (TextLocation{1, 1}));
    EXPECT_EQ(text.view->syntaxNode(99), std::nullopt);
    text.view->setLanguageMode(PlainTextLanguageMode());
    EXPECT_EQ(text.view->syntaxNode(8), std::nullopt);
}

TEST(TextViewLanguage, AModeThatIsReplacedReportsThatItWasNotParsed) {
    ShownText text(u"let a = 1;\n|");
    std::optional<bool> parsed;
    text.view->setLanguageMode(javascript(), [&](bool isParsed) { parsed = isParsed; });
    text.view->setState(TextViewState(TextStore(u"x"), text.view->theme(), *text.measurer));
    text.executor->runNext();
    EXPECT_TRUE(parsed.has_value());
    EXPECT_EQ(text.view->syntaxNode(0), std::nullopt);
    text.view->setLanguageMode(javascript());
    text.view.reset();
    text.executor->runNext();
}

TEST(TextViewLanguage, AStateBringsItsLanguage) {
    ShownText text;
    text.view->setState(
        TextViewState(TextStore(u"a = {|"), text.view->theme(), *text.measurer, javascript(), text.executor));
    text.view->setText(u"f = {}");
    text.view->setSelectedRange(TextRange{5, 0});
    EXPECT_NE(text.view->syntaxNode(0), std::nullopt);
}

} // namespace
