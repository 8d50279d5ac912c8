#include "examples/editor/window/EditorPage.h"
#include "examples/editor/window/EditorWindow.h"
#include "examples/editor/window/Menus.h"
#include "examples/editor/window/SaveFlow.h"

#include <QtCore/QDir>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

namespace tessarine::editor {

namespace {

QAction* addWindowAction(QMenu& menu, EditorWindow& window, const QString& text, const QKeySequence& keys,
                         std::function<void()> action) {
    auto* const entry = menu.addAction(text);
    entry->setShortcut(keys);
    QObject::connect(entry, &QAction::triggered, &window, std::move(action));
    return entry;
}

void fillRecentFiles(QMenu& menu, EditorWindow& window) {
    menu.clear();
    for (const QString& path : window.services().settings.recentFiles())
        addWindowAction(menu, window, QDir::toNativeSeparators(path).replace(u'&', QStringLiteral("&&")), {},
                        [&window, path] { window.openFile(path); });
    if (menu.isEmpty()) menu.addAction(EditorWindow::tr("No Recent Files"))->setEnabled(false);
}

void addRecentFiles(QMenu& menu, EditorWindow& window) {
    QMenu* const recent = menu.addMenu(EditorWindow::tr("Open &Recent"));
    QObject::connect(recent, &QMenu::aboutToShow, &window,
                     [recent, &window] { fillRecentFiles(*recent, window); });
}

void addSaving(QMenu& menu, EditorWindow& window) {
    QAction* const save = addPageAction(menu, window, EditorWindow::tr("&Save"), QKeySequence::Save,
                                        [](EditorPage& page) { savePage(page, [](bool) {}); });
    QAction* const saveAs = addPageAction(menu, window, EditorWindow::tr("Save &As…"),
                                          QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
                                          [](EditorPage& page) { savePageAs(page, [](bool) {}); });
    QObject::connect(&window, &EditorWindow::currentPageChanged, save, [&window, save, saveAs] {
        const EditorPage* const page = window.currentPage();
        save->setEnabled(page && page->canSave());
        saveAs->setEnabled(page && page->canSave());
    });
}

} // namespace

void makeFileMenu(EditorWindow& window) {
    QMenu& menu = *window.menuBar()->addMenu(EditorWindow::tr("&File"));
    addWindowAction(menu, window, EditorWindow::tr("&New"), QKeySequence::New,
                    [&window] { window.newPage(); });
    addWindowAction(menu, window, EditorWindow::tr("&Open…"), QKeySequence::Open,
                    [&window] { window.chooseFiles(); });
    addRecentFiles(menu, window);
    menu.addSeparator();
    addSaving(menu, window);
    menu.addSeparator();
    addPageAction(menu, window, EditorWindow::tr("&Close"), QKeySequence(Qt::CTRL | Qt::Key_W),
                  [&window](EditorPage& page) { window.closePage(page); });
    addWindowAction(menu, window, EditorWindow::tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q),
                    [&window] { window.close(); });
}

} // namespace tessarine::editor
