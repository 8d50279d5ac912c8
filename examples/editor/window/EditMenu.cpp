#include "Tessarine/textview/TextView.h"
#include "examples/editor/find/FindSession.h"
#include "examples/editor/window/EditorPage.h"
#include "examples/editor/window/EditorWindow.h"
#include "examples/editor/window/Menus.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

namespace tessarine::editor {

namespace {

// The field of a bar that has the keyboard is meant rather than the text.
template <class OnField, class OnView>
auto onFocused(OnField onField, OnView onView) {
    return [onField, onView](EditorPage& page) {
        if (auto* const field = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
            std::invoke(onField, *field);
        else
            std::invoke(onView, page.view());
    };
}

void addUndo(QMenu& menu, EditorWindow& window) {
    QAction* const undo = addPageAction(menu, window, EditorWindow::tr("&Undo"), QKeySequence::Undo,
                                        [](EditorPage& page) { page.textView().undo(); });
    QAction* const redo = addPageAction(menu, window, EditorWindow::tr("&Redo"), QKeySequence::Redo,
                                        [](EditorPage& page) { page.textView().redo(); });
    QObject::connect(&window, &EditorWindow::currentPageChanged, undo, [&window, undo, redo] {
        const EditorPage* const page = window.currentPage();
        undo->setEnabled(page && page->textView().canUndo());
        redo->setEnabled(page && page->textView().canRedo());
    });
}

void addClipboard(QMenu& menu, EditorWindow& window) {
    addPageAction(menu, window, EditorWindow::tr("Cu&t"), QKeySequence::Cut,
                  onFocused(&QLineEdit::cut, &QtTextView::cut));
    addPageAction(menu, window, EditorWindow::tr("&Copy"), QKeySequence::Copy,
                  onFocused(&QLineEdit::copy, &QtTextView::copy));
    addPageAction(menu, window, EditorWindow::tr("&Paste"), QKeySequence::Paste,
                  onFocused(&QLineEdit::paste, &QtTextView::paste));
    addPageAction(menu, window, EditorWindow::tr("Select &All"), QKeySequence::SelectAll,
                  onFocused(&QLineEdit::selectAll, &QtTextView::selectAll));
}

void addLines(QMenu& menu, EditorWindow& window) {
    addPageAction(menu, window, EditorWindow::tr("Move Lines &Up"), QKeySequence(Qt::ALT | Qt::Key_Up),
                  [](EditorPage& page) { page.textView().moveSelectedLinesUp(); });
    addPageAction(menu, window, EditorWindow::tr("Move Lines &Down"), QKeySequence(Qt::ALT | Qt::Key_Down),
                  [](EditorPage& page) { page.textView().moveSelectedLinesDown(); });
    addPageAction(menu, window, EditorWindow::tr("Shift &Left"), QKeySequence(Qt::CTRL | Qt::Key_BracketLeft),
                  [](EditorPage& page) { page.textView().shiftLeft(); });
    addPageAction(menu, window, EditorWindow::tr("Shift Ri&ght"),
                  QKeySequence(Qt::CTRL | Qt::Key_BracketRight),
                  [](EditorPage& page) { page.textView().shiftRight(); });
}

void addFinding(QMenu& menu, EditorWindow& window) {
    addPageAction(menu, window, EditorWindow::tr("&Find…"), QKeySequence::Find,
                  [](EditorPage& page) { page.find().open(false); });
    addPageAction(menu, window, EditorWindow::tr("R&eplace…"), QKeySequence(Qt::CTRL | Qt::Key_H),
                  [](EditorPage& page) { page.find().open(true); });
    addPageAction(menu, window, EditorWindow::tr("Find &Next"), QKeySequence(Qt::Key_F3),
                  [](EditorPage& page) { page.find().findNext(); });
    addPageAction(menu, window, EditorWindow::tr("Find Pre&vious"), QKeySequence(Qt::SHIFT | Qt::Key_F3),
                  [](EditorPage& page) { page.find().findPrevious(); });
    addPageAction(menu, window, EditorWindow::tr("Go to L&ine…"), QKeySequence(Qt::CTRL | Qt::Key_G),
                  [](EditorPage& page) { page.openGoToLine(); });
}

} // namespace

void makeEditMenu(EditorWindow& window) {
    QMenu& menu = *window.menuBar()->addMenu(EditorWindow::tr("&Edit"));
    addUndo(menu, window);
    menu.addSeparator();
    addClipboard(menu, window);
    menu.addSeparator();
    addLines(menu, window);
    menu.addSeparator();
    addFinding(menu, window);
}

} // namespace tessarine::editor
