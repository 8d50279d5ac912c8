#include "Tessarine/textview/TextView.h"
#include "examples/editor/window/EditorPage.h"
#include "examples/editor/window/EditorWindow.h"
#include "examples/editor/window/Indentation.h"
#include "examples/editor/window/LanguageChoice.h"
#include "examples/editor/window/LineEndings.h"
#include "examples/editor/window/Menus.h"

#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

namespace tessarine::editor {

namespace {

// A choice that has a mark while it is the page's.
void addChoice(QMenu& menu, EditorWindow& window, const QString& text,
               std::function<bool(const EditorPage&)> isChosen, std::function<void(EditorPage&)> choose) {
    QAction* const entry = addPageAction(menu, window, text, {}, std::move(choose));
    entry->setCheckable(true);
    QObject::connect(&menu, &QMenu::aboutToShow, entry, [entry, &window, isChosen = std::move(isChosen)] {
        entry->setChecked(window.currentPage() && isChosen(*window.currentPage()));
    });
}

void addLanguage(QMenu& menu, EditorWindow& window, const std::optional<Language>& language) {
    addChoice(
        menu, window, languageTitle(language),
        [language](const EditorPage& page) { return page.language() == language; },
        [language](EditorPage& page) { page.setLanguage(language); });
}

QMenu* makeLanguageMenu(EditorWindow& window) {
    QMenu* const menu = window.menuBar()->addMenu(EditorWindow::tr("&Language"));
    addLanguage(*menu, window, std::nullopt);
    menu->addSeparator();
    for (const LanguageTitle& each : languageTitles())
        addLanguage(*menu, window, each.language);
    return menu;
}

QString longName(LineEnding lineEnding) {
    switch (lineEnding) {
    case LineEnding::lf:
        return EditorWindow::tr("LF (Unix)");
    case LineEnding::crlf:
        return EditorWindow::tr("CRLF (Windows)");
    case LineEnding::cr:
        break;
    }
    return EditorWindow::tr("CR (old Mac)");
}

QMenu* makeLineEndingsMenu(EditorWindow& window) {
    QMenu* const menu = window.menuBar()->addMenu(EditorWindow::tr("Line E&ndings"));
    for (const LineEnding lineEnding : allLineEndings)
        addChoice(
            *menu, window, longName(lineEnding),
            [lineEnding](const EditorPage& page) { return page.textView().lineEndings() == lineEnding; },
            [lineEnding](EditorPage& page) { page.setLineEndings(lineEnding); });
    return menu;
}

QMenu* makeIndentationMenu(EditorWindow& window) {
    QMenu* const menu = window.menuBar()->addMenu(EditorWindow::tr("&Indentation"));
    for (const IndentStrategy& strategy : indentStrategies())
        addChoice(
            *menu, window, displayName(strategy),
            [strategy](const EditorPage& page) { return page.textView().indentStrategy() == strategy; },
            [strategy](EditorPage& page) { page.setIndentStrategy(strategy); });
    return menu;
}

} // namespace

DocumentMenus makeDocumentMenus(EditorWindow& window) {
    return {makeLanguageMenu(window), makeLineEndingsMenu(window), makeIndentationMenu(window)};
}

} // namespace tessarine::editor
