#pragma once

#include <QtCore/QString>
#include <QtGui/QKeySequence>

#include <functional>

class QAction;
class QMenu;

namespace tessarine::editor {

class EditorPage;
class EditorWindow;

// Those that are about one text, which the status line shows as well.
struct DocumentMenus {
    QMenu* language;
    QMenu* lineEndings;
    QMenu* indentation;
};

// Fills the window's menu bar.
DocumentMenus makeMenus(EditorWindow& window);

void makeFileMenu(EditorWindow& window);
void makeEditMenu(EditorWindow& window);
void makeViewMenu(EditorWindow& window);
DocumentMenus makeDocumentMenus(EditorWindow& window);

// An entry that does something with the page in front.
QAction* addPageAction(QMenu& menu, EditorWindow& window, const QString& text, const QKeySequence& keys,
                       std::function<void(EditorPage&)> action);

} // namespace tessarine::editor
