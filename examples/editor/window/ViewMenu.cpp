#include "examples/editor/window/EditorWindow.h"
#include "examples/editor/window/Menus.h"

#include <QtGui/QActionGroup>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

namespace tessarine::editor {

namespace {

using Toggle = bool ViewOptions::*;

void addThemes(QMenu& menu, EditorSettings& settings) {
    QMenu* const themes = menu.addMenu(EditorWindow::tr("&Theme"));
    auto* const group = new QActionGroup(themes);
    for (const ThemeName& theme : themeNames()) {
        QAction* const entry = group->addAction(themes->addAction(theme.title));
        entry->setCheckable(true);
        QObject::connect(entry, &QAction::triggered, &settings, [&settings, id = theme.id] {
            ViewOptions options = settings.viewOptions();
            options.theme = id;
            settings.setViewOptions(options);
        });
    }
    QObject::connect(themes, &QMenu::aboutToShow, group, [group, &settings] {
        const QList<QAction*> entries = group->actions();
        entries.first()->setChecked(true); // unless the settings name another one
        for (std::size_t i = 0; i < themeNames().size(); ++i)
            if (themeNames()[i].id == settings.viewOptions().theme)
                entries[static_cast<qsizetype>(i)]->setChecked(true);
    });
}

void addToggle(QMenu& menu, EditorSettings& settings, const QString& text, Toggle toggle,
               const QKeySequence& keys = {}) {
    QAction* const entry = menu.addAction(text);
    entry->setCheckable(true);
    entry->setShortcut(keys);
    entry->setChecked(settings.viewOptions().*toggle);
    QObject::connect(entry, &QAction::toggled, &settings, [&settings, toggle](bool isOn) {
        ViewOptions options = settings.viewOptions();
        options.*toggle = isOn;
        settings.setViewOptions(options);
    });
}

void addZoom(QMenu& menu, EditorSettings& settings, const QString& text, const QList<QKeySequence>& keys,
             std::function<int(int)> zoom) {
    QAction* const entry = menu.addAction(text);
    entry->setShortcuts(keys);
    QObject::connect(entry, &QAction::triggered, &settings, [&settings, zoom = std::move(zoom)] {
        ViewOptions options = settings.viewOptions();
        options.zoom = zoom(options.zoom);
        settings.setViewOptions(options);
    });
}

} // namespace

void makeViewMenu(EditorWindow& window) {
    QMenu& menu = *window.menuBar()->addMenu(EditorWindow::tr("&View"));
    EditorSettings& settings = window.services().settings;
    addThemes(menu, settings);
    menu.addSeparator();
    addToggle(menu, settings, EditorWindow::tr("&Line Numbers"), &ViewOptions::showLineNumbers);
    addToggle(menu, settings, EditorWindow::tr("&Invisible Characters"), &ViewOptions::showInvisibles);
    addToggle(menu, settings, EditorWindow::tr("&Wrap Lines"), &ViewOptions::wrapLines,
              QKeySequence(Qt::ALT | Qt::Key_Z));
    addToggle(menu, settings, EditorWindow::tr("&Page Guide"), &ViewOptions::showPageGuide);
    menu.addSeparator();
    addZoom(menu, settings, EditorWindow::tr("Zoom &In"),
            {QKeySequence(QKeySequence::ZoomIn), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
            [](int points) { return points + 1; });
    addZoom(menu, settings, EditorWindow::tr("Zoom &Out"), {QKeySequence(QKeySequence::ZoomOut)},
            [](int points) { return points - 1; });
    addZoom(menu, settings, EditorWindow::tr("&Actual Size"), {QKeySequence(Qt::CTRL | Qt::Key_0)},
            [](int) { return 0; });
}

} // namespace tessarine::editor
