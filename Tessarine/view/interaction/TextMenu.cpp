#include "Tessarine/view/interaction/TextMenu.h"

#include "Tessarine/editing/LocalizedString.h"
#include "Tessarine/textview/TextView.h"
#include "Tessarine/view/interaction/TextClipboard.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QMenu>

#include <string>

namespace tessarine {

namespace {

// Keys stand behind the titles, but belong to the view.
void add(QMenu& menu, const char* title, QKeySequence::StandardKey key, bool isEnabled, auto run) {
    QAction* const action =
        menu.addAction(QCoreApplication::translate("tessarine::QtTextView", title), &menu, run);
    action->setShortcut(key);
    action->setEnabled(isEnabled);
}

void addReplacing(QMenu& menu, TextView& textView) {
    menu.addAction(QString::fromStdString(localizedString(replaceItemTitle)), &menu,
                   [&textView] { textView.replaceTextInHighlightedRange(); });
}

} // namespace

std::unique_ptr<QMenu> textMenu(TextView& textView, TextClipboard& clipboard, QWidget* parent) {
    auto menu = std::make_unique<QMenu>(parent);
    add(*menu, "&Undo", QKeySequence::Undo, textView.canUndo(), [&] { textView.undo(); });
    add(*menu, "&Redo", QKeySequence::Redo, textView.canRedo(), [&] { textView.redo(); });
    menu->addSeparator();
    add(*menu, "Cu&t", QKeySequence::Cut, clipboard.canCut(), [&] { clipboard.cut(); });
    add(*menu, "&Copy", QKeySequence::Copy, clipboard.canCopy(), [&] { clipboard.copy(); });
    add(*menu, "&Paste", QKeySequence::Paste, clipboard.canPaste(), [&] { clipboard.paste(); });
    menu->addSeparator();
    add(*menu, "Select &All", QKeySequence::SelectAll, textView.document().stringView->length() > 0,
        [&] { textView.movement().selectAll(); });
    if (textView.canReplaceTextInHighlightedRange()) addReplacing(*menu, textView);
    return menu;
}

} // namespace tessarine
