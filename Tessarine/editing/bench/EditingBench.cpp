// What an edit costs on its whole road: a key in a million lines, pastes, undo, whole texts, and a key with
// the syntax beside the bare parsing library, which gets the same texts and edits in the same run.

#include "Tessarine/document/bench/BenchRow.h"
#include "Tessarine/document/bench/Workload.h"
#include "Tessarine/document/search/ReplaceAll.h"
#include "Tessarine/editing/TextEditHelper.h"
#include "Tessarine/editing/TextInputView.h"
#include "Tessarine/editing/TextViewState.h"
#include "Tessarine/editing/tests/FakeTextMeasurer.h"
#include "Tessarine/editing/tests/FakeTimerScheduler.h"
#include "Tessarine/syntax/bench/BareParser.h"
#include "Tessarine/syntax/bench/SampleTexts.h"
#include "Tessarine/syntax/tests/QueuedExecutor.h"
#include "Tessarine/theme/DefaultTheme.h"
#include "languages/grammars/Grammars.h"

#include <string>

using namespace tessarine;

namespace {

class NoLayout final : public TextInputLayout {
public:
    void setDocument(const EditedDocument& /*document*/) override {}

    void setTabWidth(double /*tabWidth*/) override {}

    void invalidateContentSize() override {}

    void removeLine(const DocumentLineNodeID& /*lineID*/) override {}

    void removeAllLines() override {}

    void typesetLines(const LineSet& /*lines*/) override {}

    void lineCountDidChange() override {}

    void setNeedsLayout() override {}

    void layoutIfNeeded() override {}

    Size contentSize() override { return {}; }
};

class Editor {
public:
    explicit Editor(std::u16string_view text) {
        view->setState(TextViewState(TextStore(text), std::make_shared<DefaultTheme>(), *measurer));
    }

    Editor(std::u16string_view text, const char* grammar) {
        const TreeSitterLanguageMode mode(
            std::make_shared<const TreeSitterLanguage>(languages::grammarNamed(grammar)));
        view->setState(TextViewState(TextStore(text), std::make_shared<DefaultTheme>(), *measurer, mode,
                                     std::make_shared<QueuedExecutor>()));
    }

    void select(std::int64_t location, std::int64_t length = 0) {
        view->setSelectedRange(TextRange{location, length});
    }

    std::int64_t length() const { return view->document().stringView->length(); }

    const std::shared_ptr<FakeTextMeasurer> measurer = std::make_shared<FakeTextMeasurer>();
    const std::shared_ptr<TextInputView> view =
        TextInputView::create(std::make_shared<NoLayout>(), std::make_shared<FakeTimerScheduler>(), measurer);
};

std::u16string lines(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "    result += compute(name, " + std::to_string(i) + ");\n";
    return {text.begin(), text.end()};
}

// A caret somewhere else after every twenty edits, each edit at the caret.
template <class Edit>
Samples timeEdits(Editor& editor, int count, Edit edit) {
    WorkloadRandom random;
    Samples samples;
    for (int i = 0; i < count; ++i) {
        if (i % 20 == 0) editor.select(random(editor.length() - 100) + 50);
        samples.measure([&] { edit(); });
    }
    editor.view->undoManager().removeAllActions();
    return samples;
}

void benchKeys(const std::u16string& text) {
    constexpr int count = 20'000;
    Editor editor(text);
    TextInputView& view = *editor.view;
    Samples typed = timeEdits(editor, count, [&] { view.insertText(u"x"); });
    Samples returns = timeEdits(editor, count, [&] { view.insertText(u"\n"); });
    Samples backspaces = timeEdits(editor, count, [&] {
        editor.select(view.selectedRange()->location - 1, 1);
        view.deleteBackward();
    });
    Samples floor = timeEdits(editor, count, [&] {
        const std::int64_t at = view.selectedRange()->location;
        TextEditHelper(*view.document().stringView, *view.document().lineManager, LineEnding::lf)
            .replaceCharacters({at, 0}, u"x");
    });
    printRow("a character, 1,000,000 lines", typed, microseconds, "us");
    printRow("  text and lines alone", floor, microseconds, "us");
    printRow("a return", returns, microseconds, "us");
    printRow("a backspace", backspaces, microseconds, "us");
}

void benchPastes(const std::u16string& text) {
    Editor editor(text);
    const std::u16string pasted = text.substr(0, 1'000'000);
    Samples pastes;
    Samples undos;
    WorkloadRandom random;
    for (int i = 0; i < 50; ++i) {
        editor.select(random(editor.length()));
        pastes.measure([&] { editor.view->insertText(pasted); });
        undos.measure([&] { editor.view->undoManager().undo(); });
        editor.view->undoManager().removeAllActions();
    }
    printRow("a paste of 1 MB, 1,000,000 lines", pastes, milliseconds, "ms");
    printRow("  undo of it", undos, milliseconds, "ms");
}

// Ten megabytes with a match in every hundred units.
void benchReplaceAll() {
    std::u16string text;
    while (text.size() < 10'000'000)
        text += lines(2).append(u"needle").append(100 - 2 * 32 - 6 - 1, u'.').append(u"\n").substr(0, 100);
    Editor editor(text);
    TextInputView& view = *editor.view;
    BatchReplaceSet set;
    for (std::size_t at = text.find(u"needle"); at != std::u16string::npos; at = text.find(u"needle", at + 6))
        set.replacements.push_back({{static_cast<std::int64_t>(at), 6}, u"replaced"});
    Samples replacing;
    Samples undos;
    for (int i = 0; i < 15; ++i) {
        replacing.measure([&] { view.replaceText(set); });
        undos.measure([&] { view.undoManager().undo(); });
    }
    printRow(std::to_string(set.replacements.size()) + " replacements in 10 MB, plain text", replacing,
             milliseconds, "ms");
    printRow("  undo of it", undos, milliseconds, "ms");
}

// Pairs of a character typed within a name and taken back.
void benchKeysWithSyntax(const std::string& name, const std::u16string& text, int count) {
    Editor editor(text, "C");
    TextInputView& view = *editor.view;
    BareParser bare(text, languages::grammarNamed("C"));
    bare.parse();
    const auto at = static_cast<std::int64_t>(text.find(u"compute", text.size() / 2)) + 2;
    const LinePosition place = *view.document().lineManager->linePosition(at);
    const LinePosition behind{place.row, place.column + 1};
    const LanguageModeTextChange insertion{{2 * at, 0}, 2, place, place, behind};
    const LanguageModeTextChange removal{{2 * at, 2}, 0, behind, place, place};
    Samples typed;
    Samples removed;
    Samples bareTyped;
    Samples bareRemoved;
    for (int i = 0; i < count; ++i) {
        editor.select(at);
        typed.measure([&] { view.insertText(u"x"); });
        bare.changeText(static_cast<std::size_t>(at), true);
        bareTyped.measure([&] { bare.reparse(rawEdit(insertion)); });
        editor.select(at, 1);
        removed.measure([&] { view.deleteBackward(); });
        bare.changeText(static_cast<std::size_t>(at), false);
        bareRemoved.measure([&] { bare.reparse(rawEdit(removal)); });
    }
    printRow("a character in " + name, typed, microseconds, "us");
    printLibraryRow("alone", bareTyped, microseconds, "us");
    printRow("a backspace in " + name, removed, microseconds, "us");
    printLibraryRow("alone", bareRemoved, microseconds, "us");
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view only = argc > 1 ? argv[1] : "";
    const auto isWanted = [only](std::string_view group) { return only.empty() || only == group; };
    std::printf("%-58s %10s %10s\n", "", "median", "p99");
    if (isWanted("keys")) benchKeys(lines(1'000'000));
    if (isWanted("pastes")) benchPastes(lines(1'000'000));
    if (isWanted("whole")) benchReplaceAll();
    if (isWanted("syntax")) {
        benchKeysWithSyntax("100 KB of C", SampleTexts::c(100'000), 2'000);
        benchKeysWithSyntax("1 MB of C", SampleTexts::c(1'000'000), 300);
        benchKeysWithSyntax("10 MB of C", SampleTexts::c(10'000'000), 30);
    }
}
