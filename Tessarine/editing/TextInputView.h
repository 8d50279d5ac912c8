#pragma once

#include "Tessarine/base/Font.h"
#include "Tessarine/base/TextMeasurer.h"
#include "Tessarine/base/TextRange.h"
#include "Tessarine/base/TimerScheduler.h"
#include "Tessarine/document/IndentStrategy.h"
#include "Tessarine/document/LineEnding.h"
#include "Tessarine/document/TextStore.h"
#include "Tessarine/document/search/BatchReplaceSet.h"
#include "Tessarine/editing/CharacterPairs.h"
#include "Tessarine/editing/EditedDocument.h"
#include "Tessarine/editing/IndentController.h"
#include "Tessarine/editing/TextInputDelegate.h"
#include "Tessarine/editing/TextInputLayout.h"
#include "Tessarine/editing/TextInputViewDelegate.h"
#include "Tessarine/editing/TimedUndoManager.h"
#include "Tessarine/syntax/TreeSitterLanguageModeDelegate.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tessarine {

class TextViewState;

// The one road on which the text of a document changes. Text, lines, language mode, layout and undo stack are
// in step after each of its operations; every change can be undone.
//
// Units: ranges in code units of the text as it is. Those that come in are brought into the text where
// nothing else is said. Thread: the main one. Delegates may edit from within what they are told; then what
// follows is told of the text as they left it.
class TextInputView final : public IndentControllerDelegate,
                            public TreeSitterLanguageModeDelegate,
                            public std::enable_shared_from_this<TextInputView> {
public:
    // Of an empty document.
    static std::shared_ptr<TextInputView> create(std::shared_ptr<TextInputLayout> layout,
                                                 std::shared_ptr<TimerScheduler> timerScheduler,
                                                 std::shared_ptr<const TextMeasurer> textMeasurer);

    // Who is asked and told. Without one everything is allowed.
    std::shared_ptr<TextInputViewDelegate> delegate() const { return m_delegate.lock(); }

    void setDelegate(std::weak_ptr<TextInputViewDelegate> delegate) { m_delegate = std::move(delegate); }

    void setInputDelegate(std::weak_ptr<TextInputDelegate> delegate) {
        m_inputDelegate = std::move(delegate);
    }

    // The document. Taking over a state ends what could be undone.
    const EditedDocument& document() const { return m_document; }

    void setState(const TextViewState& state);

    // For the document as it is; it has to know the text already, or soon.
    void setLanguageMode(std::shared_ptr<InternalLanguageMode> languageMode);

    LineEnding lineEndings() const { return m_lineEndings; }

    void setLineEndings(LineEnding lineEndings) { m_lineEndings = lineEndings; }

    std::u16string withLineEndings(std::u16string_view text) const;

    TextRange inText(TextRange range) const { return rangeInText(range, *m_document.stringView); }

    // How it is edited.
    const IndentController& indentController() const { return m_indentController; }

    void setIndentStrategy(const IndentStrategy& strategy);
    void setIndentFont(Font font);

    CharacterPairs& characterPairs() { return m_characterPairs; }

    TimedUndoManager& undoManager() { return m_undoManager; }

    // What is edited. A negative length reaches back from the location.
    const std::optional<TextRange>& selectedRange() const { return m_selectedRange; }

    void setSelectedRange(std::optional<TextRange> range);

    const std::optional<TextRange>& markedRange() const { return m_markedRange; }

    void setMarkedRange(std::optional<TextRange> range);

    // Typing: in place of the marked range, else of the selection. A line break alone is a press of return.
    // True if the text went in as it is or with an indent; false also if character pairs made something else
    // of it.
    bool insertText(std::u16string_view text);

    // Deletes the marked range, else the selection; one of a single unit is grown to the character or to the
    // indent around it. Does nothing where that range is empty.
    void deleteBackward();

    // The same of the character or indent in front of a caret. Does nothing where something is selected or
    // marked.
    void deleteInFrontOfCaret();

    // Puts in a text with the document's line breaks, if the delegate allows it.
    void replace(TextRange range, std::u16string_view text);

    // The same in place of the selection, as an undo step of its own.
    void paste(std::u16string_view text);

    void shiftLeft();
    void shiftRight();

    // Exchanges the lines of the selection with the one above (-1) or below (1), as an undo step of its own.
    // The selection goes along.
    void moveSelectedLines(std::int64_t offset, std::string_view undoActionName);

    // The same with any text to any other place, by a pointer; it is selected there. Not into itself.
    void moveText(TextRange range, std::int64_t location);

    // A text that an input method has not settled yet goes in place of the marked range, else of the
    // selection, and is marked. What is selected counts from its start. Without effect where the delegate
    // does not allow the text.
    void setMarkedText(std::u16string_view text, TextRange selectedRange);

    void unmarkText() { m_markedRange.reset(); }

    // Asks character pairs and delegate. False means that the text must not go in, or has been dealt with.
    bool shouldChangeText(TextRange range, std::u16string_view text);

    // The replacement that all of the above come down to. The range must lie in the text, else the program
    // stops; `text` must not be of the string view.
    void replaceCharacters(TextRange range, std::u16string_view text,
                           std::optional<TextRange> selectedRangeAfterUndo, std::string_view undoActionName);

    // Whole texts. What they do not change, they do not make undoable. O(text), as nothing else here is.
    void setString(TextStore text);
    void setStringWithUndoAction(TextStore text);

    // What another program has made of a part of the text: it goes in as it is and unasked for, as an undo
    // step of its own, and the selection stays with its text.
    void takeChange(TextRange range, std::u16string_view text);

    // All at once and undone as one; the caret stays in its row and column.
    void replaceText(const BatchReplaceSet& replacements);

    std::optional<TreeSitterTextProviderResult> treeSitterLanguageMode(ByteCount byteIndex) override;
    void treeSitterLanguageModeDidReparse(const LineChangeSet& changes) override;

private:
    TextInputView(std::shared_ptr<TextInputLayout> layout, std::shared_ptr<TimerScheduler> timerScheduler,
                  std::shared_ptr<const TextMeasurer> textMeasurer);

    void indentControllerReplaceText(TextRange range, std::u16string_view text) override;
    void indentControllerSelect(TextRange range) override;

    void setDocument(EditedDocument document);
    std::optional<TextRange> targetRange() const;
    TextRange rangeToDelete(TextRange range) const;
    void deleteCharacters(TextRange range, std::optional<TextRange> selectedRangeAfterUndo);
    bool delegateAllows(TextRange range, std::u16string_view text) const;
    void beginUndoStep();
    void moveText(TextRange range, std::int64_t location, std::u16string_view text, TextRange selectionThere,
                  std::string_view undoActionName);
    void shift(void (IndentController::*shiftLines)(TextRange));

    void exchangeCharacters(TextRange range, std::u16string_view text,
                            std::optional<TextRange> selectedRangeAfterUndo, std::string_view undoActionName);
    void registerReplacement(std::u16string oldText, TextRange newRange,
                             std::optional<TextRange> selectedRangeAfterUndo,
                             std::string_view undoActionName);
    void applyLineChanges(const LineChangeSet& changes);
    void updateContentSize();
    void tellChange();
    void tellSelectionChange();
    void selectAnew(TextRange range);
    std::int64_t locationNear(const LinePosition& position) const;

    const std::shared_ptr<TextInputLayout> m_layout;
    std::weak_ptr<TextInputViewDelegate> m_delegate;
    std::weak_ptr<TextInputDelegate> m_inputDelegate;

    EditedDocument m_document;
    LineEnding m_lineEndings = LineEnding::lf;
    std::optional<TextRange> m_selectedRange;
    std::optional<TextRange> m_markedRange;

    TimedUndoManager m_undoManager;
    IndentController m_indentController;
    CharacterPairs m_characterPairs;
};

} // namespace tessarine
