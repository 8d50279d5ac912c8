#include "examples/editor/window/Menus.h"

#include "examples/editor/window/EditorWindow.h"

#include <QtWidgets/QMenu>

namespace tessarine::editor {

DocumentMenus makeMenus(EditorWindow& window) {
    makeFileMenu(window);
    makeEditMenu(window);
    makeViewMenu(window);
    return makeDocumentMenus(window);
}

QAction* addPageAction(QMenu& menu, EditorWindow& window, const QString& text, const QKeySequence& keys,
                       std::function<void(EditorPage&)> action) {
    auto* const entry = menu.addAction(text);
    entry->setShortcut(keys);
    QObject::connect(entry, &QAction::triggered, &window, [&window, action = std::move(action)] {
        if (EditorPage* const page = window.currentPage()) action(*page);
    });
    return entry;
}

} // namespace tessarine::editor
