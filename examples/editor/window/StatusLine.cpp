#include "examples/editor/window/StatusLine.h"

#include "Tessarine/textview/TextView.h"
#include "examples/editor/window/EditorPage.h"
#include "examples/editor/window/EditorWindow.h"
#include "examples/editor/window/Indentation.h"
#include "examples/editor/window/LanguageChoice.h"
#include "examples/editor/window/LineEndings.h"
#include "examples/editor/window/TextPlace.h"

#include <QtCore/QLocale>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolButton>

namespace tessarine::editor {

namespace {

QString placeOf(const EditorPage& page) {
    const TextRange selection = page.textView().selectedRange().value_or(TextRange());
    const QString place =
        placeText(page.textView().textLocation(page.textView().movement().head()).value_or(TextLocation()));
    if (selection.length == 0) return place;
    return QStatusBar::tr("%1 (%2 selected)").arg(place, QLocale().toString(selection.length));
}

QString messageOf(EditorPage& page) {
    if (page.file().isLoading()) return QStatusBar::tr("Opening…");
    return page.file().isMalformed() ? QStatusBar::tr("Read-only") : QString();
}

} // namespace

StatusLine::StatusLine(EditorWindow& window, const DocumentMenus& menus)
    : m_window(window)
    , m_message(new QLabel)
    , m_place(addButton(QStringLiteral("place"), nullptr))
    , m_indentation(addButton(QStringLiteral("indentation"), menus.indentation))
    , m_lineEnding(addButton(QStringLiteral("lineEnding"), menus.lineEndings))
    , m_encoding(new QLabel)
    , m_language(nullptr) {
    m_encoding->setObjectName(QStringLiteral("encoding"));
    m_encoding->setContentsMargins(6, 0, 6, 0);
    addPermanentWidget(m_encoding);
    m_language = addButton(QStringLiteral("language"), menus.language);
    m_message->setContentsMargins(8, 0, 0, 0);
    addWidget(m_message, 1);
    setSizeGripEnabled(false);
    connect(m_place, &QToolButton::clicked, this, [this] {
        if (EditorPage* const page = m_window.currentPage()) page->openGoToLine();
    });
    connect(&window, &EditorWindow::currentPageChanged, this, &StatusLine::showPage);
}

// The button has no menu of its own: the arrow that shows one would be all there is to see in a narrow one.
QToolButton* StatusLine::addButton(const QString& name, QMenu* menu) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setAutoRaise(true);
    addPermanentWidget(button);
    if (menu)
        connect(button, &QToolButton::clicked, menu,
                [button, menu] { menu->popup(button->mapToGlobal(QPoint(0, -menu->sizeHint().height()))); });
    return button;
}

// Of a fixed size, so that the line is not laid out anew at each step of the caret; it grows with the text.
void StatusLine::showPlace(const EditorPage& page) {
    m_place->setText(placeOf(page));
    const QSize wanted = m_place->sizeHint().expandedTo(m_place->minimumSize());
    if (wanted != m_place->minimumSize()) m_place->setFixedSize(wanted);
}

void StatusLine::showPage() {
    EditorPage* const page = m_window.currentPage();
    if (!page) return;
    const TextView& view = page->textView();
    m_message->setText(messageOf(*page));
    showPlace(*page);
    m_indentation->setText(displayName(view.indentStrategy()));
    m_lineEnding->setText(displayName(view.lineEndings()));
    m_encoding->setText(displayName(page->file().format()));
    m_language->setText(languageTitle(page->language()));
}

} // namespace tessarine::editor
