#include "Tessarine/view/interaction/KeyBindings.h"

#include "Tessarine/textview/TextView.h"
#include "Tessarine/view/interaction/TextClipboard.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QKeySequence>

#include <algorithm>
#include <array>

namespace tessarine {

namespace {

template <CaretMovement movement, SelectionMode mode = SelectionMode::move>
constexpr KeyBinding move{.kind = KeyBinding::Kind::moves, .run = [](TextView& textView, TextClipboard&) {
                              textView.moveCaret(movement, mode);
                          }};

template <CaretMovement movement>
constexpr KeyBinding extend = move<movement, SelectionMode::extend>;

template <TextDeletion deletion>
constexpr KeyBinding remove{.kind = KeyBinding::Kind::edits,
                            .run = [](TextView& textView, TextClipboard&) { textView.deleteText(deletion); }};

// Of operations without arguments.
template <void (TextView::*operation)()>
constexpr KeyBinding edit{.kind = KeyBinding::Kind::edits,
                          .run = [](TextView& textView, TextClipboard&) { (textView.*operation)(); }};

constexpr KeyBinding selectAll{
    .kind = KeyBinding::Kind::moves,
    .run = [](TextView& textView, TextClipboard&) { textView.movement().selectAll(); }};

constexpr KeyBinding copy{.kind = KeyBinding::Kind::copies,
                          .run = [](TextView&, TextClipboard& clipboard) { clipboard.copy(); }};

constexpr KeyBinding cut{.kind = KeyBinding::Kind::edits,
                         .run = [](TextView&, TextClipboard& clipboard) { clipboard.cut(); }};

constexpr KeyBinding paste{.kind = KeyBinding::Kind::edits,
                           .run = [](TextView&, TextClipboard& clipboard) { clipboard.paste(); }};

constexpr KeyBinding breakLine{.kind = KeyBinding::Kind::edits,
                               .run = [](TextView& textView, TextClipboard&) { textView.insertText(u"\n"); }};

constexpr KeyBinding indent{.kind = KeyBinding::Kind::edits,
                            .run = [](TextView& textView, TextClipboard& clipboard) {
                                if (clipboard.canCopy())
                                    textView.shiftRight();
                                else
                                    textView.insertText(textView.indentStrategy().string(1));
                            }};

struct StandardBinding {
    QKeySequence::StandardKey key;
    KeyBinding binding;
};

using enum CaretMovement;

constexpr std::array standardBindings{
    StandardBinding{QKeySequence::MoveToNextChar, move<right>},
    StandardBinding{QKeySequence::MoveToPreviousChar, move<left>},
    StandardBinding{QKeySequence::MoveToNextWord, move<wordRight>},
    StandardBinding{QKeySequence::MoveToPreviousWord, move<wordLeft>},
    StandardBinding{QKeySequence::MoveToNextLine, move<down>},
    StandardBinding{QKeySequence::MoveToPreviousLine, move<up>},
    StandardBinding{QKeySequence::MoveToNextPage, move<pageDown>},
    StandardBinding{QKeySequence::MoveToPreviousPage, move<pageUp>},
    StandardBinding{QKeySequence::MoveToStartOfLine, move<lineStart>},
    StandardBinding{QKeySequence::MoveToEndOfLine, move<lineEnd>},
    StandardBinding{QKeySequence::MoveToStartOfDocument, move<documentStart>},
    StandardBinding{QKeySequence::MoveToEndOfDocument, move<documentEnd>},

    StandardBinding{QKeySequence::SelectNextChar, extend<right>},
    StandardBinding{QKeySequence::SelectPreviousChar, extend<left>},
    StandardBinding{QKeySequence::SelectNextWord, extend<wordRight>},
    StandardBinding{QKeySequence::SelectPreviousWord, extend<wordLeft>},
    StandardBinding{QKeySequence::SelectNextLine, extend<down>},
    StandardBinding{QKeySequence::SelectPreviousLine, extend<up>},
    StandardBinding{QKeySequence::SelectNextPage, extend<pageDown>},
    StandardBinding{QKeySequence::SelectPreviousPage, extend<pageUp>},
    StandardBinding{QKeySequence::SelectStartOfLine, extend<lineStart>},
    StandardBinding{QKeySequence::SelectEndOfLine, extend<lineEnd>},
    StandardBinding{QKeySequence::SelectStartOfDocument, extend<documentStart>},
    StandardBinding{QKeySequence::SelectEndOfDocument, extend<documentEnd>},
    StandardBinding{QKeySequence::SelectAll, selectAll},

    StandardBinding{QKeySequence::Delete, remove<TextDeletion::forward>},
    StandardBinding{QKeySequence::DeleteStartOfWord, remove<TextDeletion::wordBackward>},
    StandardBinding{QKeySequence::DeleteEndOfWord, remove<TextDeletion::wordForward>},
    StandardBinding{QKeySequence::DeleteEndOfLine, remove<TextDeletion::toLineEnd>},
    StandardBinding{QKeySequence::InsertParagraphSeparator, breakLine},
    StandardBinding{QKeySequence::InsertLineSeparator, breakLine},

    StandardBinding{QKeySequence::Undo, edit<&TextView::undo>},
    StandardBinding{QKeySequence::Redo, edit<&TextView::redo>},
    StandardBinding{QKeySequence::Cut, cut},
    StandardBinding{QKeySequence::Copy, copy},
    StandardBinding{QKeySequence::Paste, paste},
};

struct OwnBinding {
    QKeyCombination keys;
    KeyBinding binding;
};

constexpr std::array ownBindings{
    OwnBinding{Qt::Key_Tab, indent},
    OwnBinding{Qt::SHIFT | Qt::Key_Backtab, edit<&TextView::shiftLeft>},
    OwnBinding{Qt::Key_Backspace, remove<TextDeletion::backward>},
    OwnBinding{Qt::SHIFT | Qt::Key_Backspace, remove<TextDeletion::backward>},
    OwnBinding{Qt::CTRL | Qt::SHIFT | Qt::Key_Backspace, remove<TextDeletion::toLineStart>},
    OwnBinding{Qt::CTRL | Qt::SHIFT | Qt::Key_Delete, remove<TextDeletion::toLineEnd>},
    OwnBinding{Qt::ALT | Qt::Key_Up, edit<&TextView::moveSelectedLinesUp>},
    OwnBinding{Qt::ALT | Qt::Key_Down, edit<&TextView::moveSelectedLinesDown>},
};

QKeyCombination keysOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers places = Qt::KeypadModifier | Qt::GroupSwitchModifier;
    return (event.modifiers() & ~places) | static_cast<Qt::Key>(event.key());
}

template <class Bindings, class Matches>
const KeyBinding* bindingIn(const Bindings& bindings, Matches matches) {
    const auto found = std::ranges::find_if(bindings, matches);
    return found == bindings.end() ? nullptr : &found->binding;
}

} // namespace

const KeyBinding* keyBindingFor(const QKeyEvent& event) {
    const KeyBinding* const own = bindingIn(
        ownBindings, [keys = keysOf(event)](const OwnBinding& binding) { return binding.keys == keys; });
    if (own) return own;
    return bindingIn(standardBindings,
                     [&](const StandardBinding& binding) { return event.matches(binding.key); });
}

} // namespace tessarine
