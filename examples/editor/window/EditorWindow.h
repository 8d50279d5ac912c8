#pragma once

#include "examples/editor/window/EditorLook.h"
#include "examples/editor/window/EditorServices.h"

#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtWidgets/QMainWindow>

class QTabWidget;

namespace tessarine::editor {

class EditorPage;

// The one window: a page a tab, the menus, and a status line for the page in front. There is always a page.
// Main thread.
class EditorWindow : public QMainWindow {
    Q_OBJECT

public:
    // Services are borrowed.
    explicit EditorWindow(EditorServices& services);

    EditorServices& services() { return m_services; }

    // Never null while the window is open.
    EditorPage* currentPage() const;

    EditorPage& newPage();

    // A page that has the file already comes to the front.
    void openFile(const QString& path);
    void chooseFiles();

    // Asks about changes that are not saved.
    void closePage(EditorPage& page);

Q_SIGNALS:
    // Another page is in front, or something of the one that is.
    void currentPageChanged();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void makeTabs();
    EditorPage* pageWith(const QString& path) const;
    void removePage(EditorPage& page);
    void failToOpen(EditorPage& page, const QString& message);
    void showState(EditorPage& page);
    void showTitle();
    void followSettings();
    EditorPage* pageToAskFor() const;
    void closeNext();
    std::vector<EditorPage*> pages() const;

    EditorServices& m_services;
    EditorLook m_look;
    QTabWidget* m_tabs;
    QSet<EditorPage*> m_discarded; // while the window is being closed: those whose changes may go
};

} // namespace tessarine::editor
