#pragma once

#include "examples/editor/window/Menus.h"

#include <QtWidgets/QStatusBar>

class QLabel;
class QToolButton;

namespace tessarine::editor {

class EditorPage;

// What the page in front is like: where its caret is, how it is written, in which language.
class StatusLine : public QStatusBar {
public:
    StatusLine(EditorWindow& window, const DocumentMenus& menus);

private:
    QToolButton* addButton(const QString& name, QMenu* menu);
    void showPage();
    void showPlace(const EditorPage& page);

    EditorWindow& m_window;
    QLabel* m_message;
    QToolButton* m_place;
    QToolButton* m_indentation;
    QToolButton* m_lineEnding;
    QLabel* m_encoding;
    QToolButton* m_language;
};

} // namespace tessarine::editor
