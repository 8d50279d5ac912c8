#pragma once

#include "Tessarine/editing/tests/EditedText.h"
#include "Tessarine/syntax/TreeSitterInternalLanguageMode.h"
#include "Tessarine/syntax/tests/QueuedExecutor.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

// Edits of all kinds from a source of numbers, with a plain text beside them that tells what must come out:
// the text, the lines, the selection, and what each undo and redo brings back.
class EditScript {
public:
    // Gives a number in [0, limit).
    using Numbers = std::function<std::int64_t(std::int64_t limit)>;
    using Fault = std::optional<std::string>;
    using Pieces = std::span<const std::u16string_view>;

    // Without a language mode the text is plain.
    EditScript(Numbers numbers, Pieces pieces, const TreeSitterLanguageMode* languageMode);

    Fault step();

    // Takes everything back, does it again, and takes it back.
    Fault finish();

    // How often a tree was compared with a fresh one.
    int comparedTrees() const { return m_comparedTrees; }

private:
    struct State {
        std::u16string text;
        std::optional<TextRange> selection;

        friend bool operator==(const State&, const State&) = default;
    };

    enum class Grouping { joins, isStepOfItsOwn };

    State state() const { return {m_edited.text(), m_edited.view->selectedRange()}; }

    std::int64_t length() const { return m_edited.view->document().stringView->length(); }

    TextInputView& view() { return *m_edited.view; }

    std::u16string someText(std::int64_t mostPieces);
    TextRange someRange(std::int64_t mostUnits);
    bool isPlain(std::u16string_view text) const;
    std::u16string normalized(std::u16string_view text) const;

    template <class Edit>
    bool edit(Grouping grouping, Edit work);
    Fault type();
    Fault replace();
    Fault backspace();
    void exchange();
    void replaceBatch();
    void choose();
    Fault takeBack(std::vector<State>& from, std::vector<State>& to, void (EditedText::*work)());
    Fault expectText(std::u16string_view text) const;
    Fault check();
    Fault compareTrees();

    const Numbers m_numbers;
    const Pieces m_pieces;
    EditedText m_edited;
    LineEnding m_lineEndings = LineEnding::lf;
    std::vector<State> m_past; // before each step that can be undone
    std::vector<State> m_future;
    int m_comparedTrees = 0;
};

} // namespace tessarine
