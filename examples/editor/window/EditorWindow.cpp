#include "examples/editor/window/EditorWindow.h"

#include "examples/editor/window/EditorPage.h"
#include "examples/editor/window/Menus.h"
#include "examples/editor/window/Question.h"
#include "examples/editor/window/SaveFlow.h"
#include "examples/editor/window/StatusLine.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>

namespace tessarine::editor {

namespace {

constexpr QSize usualSize(1000, 700);

EditorLook lookOf(const ViewOptions& options) {
    return editorLook(options.theme, options.zoom);
}

// Middle click closes, as in browsers.
class TabBar final : public QTabBar {
public:
    explicit TabBar(std::function<void(int)> close)
        : m_close(std::move(close)) {}

protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        const int index = tabAt(event->position().toPoint());
        if (event->button() == Qt::MiddleButton && index >= 0)
            m_close(index);
        else
            QTabBar::mouseReleaseEvent(event);
    }

private:
    const std::function<void(int)> m_close;
};

class Tabs final : public QTabWidget {
public:
    Tabs() {
        setTabBar(new TabBar([this](int index) { Q_EMIT tabCloseRequested(index); }));
    }
};

} // namespace

EditorWindow::EditorWindow(EditorServices& services)
    : m_services(services)
    , m_look(lookOf(services.settings.viewOptions()))
    , m_tabs(new Tabs) {
    makeTabs();
    const DocumentMenus menus = makeMenus(*this);
    setStatusBar(new StatusLine(*this, menus));
    connect(&services.settings, &EditorSettings::viewOptionsChanged, this, &EditorWindow::followSettings);
    setPalette(m_look.palette);
    newPage();
    if (!restoreGeometry(services.settings.windowGeometry())) resize(usualSize);
}

void EditorWindow::makeTabs() {
    m_tabs->setDocumentMode(true);
    m_tabs->setTabsClosable(true);
    m_tabs->setMovable(true);
    setCentralWidget(m_tabs);
    connect(m_tabs, &QTabWidget::tabCloseRequested, this, [this](int index) {
        if (auto* const page = static_cast<EditorPage*>(m_tabs->widget(index))) closePage(*page);
    });
    connect(m_tabs, &QTabWidget::currentChanged, this, [this] {
        showTitle();
        Q_EMIT currentPageChanged();
        if (EditorPage* const page = currentPage()) page->setFocus();
    });
}

EditorPage* EditorWindow::currentPage() const {
    return static_cast<EditorPage*>(m_tabs->currentWidget());
}

std::vector<EditorPage*> EditorWindow::pages() const {
    std::vector<EditorPage*> all;
    for (int index = 0; index < m_tabs->count(); ++index)
        all.push_back(static_cast<EditorPage*>(m_tabs->widget(index)));
    return all;
}

EditorPage& EditorWindow::newPage() {
    auto* page = new EditorPage(m_services, m_look);
    m_tabs->setCurrentIndex(m_tabs->addTab(page, QString()));
    connect(page, &EditorPage::stateChanged, this, [this, page] { showState(*page); });
    connect(page, &EditorPage::openFailed, this,
            [this, page](const QString& message) { failToOpen(*page, message); });
    showState(*page);
    page->setFocus();
    return *page;
}

EditorPage* EditorWindow::pageWith(const QString& path) const {
    for (EditorPage* const page : pages())
        if (page->file().path() == path) return page;
    return nullptr;
}

void EditorWindow::openFile(const QString& path) {
    const QFileInfo info(path);
    const QString whole = info.exists() ? info.canonicalFilePath() : QDir::cleanPath(info.absoluteFilePath());
    if (EditorPage* const page = pageWith(whole)) {
        m_tabs->setCurrentWidget(page);
        return;
    }
    EditorPage& page = currentPage() && currentPage()->isUnused() ? *currentPage() : newPage();
    page.open(whole);
    m_services.settings.addRecentFile(whole);
}

void EditorWindow::failToOpen(EditorPage& page, const QString& message) {
    removePage(page);
    ask(this, tr("The file was not opened."), message, {{tr("OK"), QMessageBox::RejectRole, [] {}}});
}

void EditorWindow::chooseFiles() {
    const QString present = currentPage() ? QFileInfo(currentPage()->file().path()).path() : QString();
    auto* dialog = new QFileDialog(this, tr("Open"), present);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    connect(dialog, &QFileDialog::filesSelected, this, [this](const QStringList& paths) {
        for (const QString& path : paths)
            openFile(path);
    });
    dialog->open();
}

void EditorWindow::closePage(EditorPage& page) {
    m_tabs->setCurrentWidget(&page);
    askToClose(page, [this, &page](bool mayClose) {
        if (mayClose) removePage(page);
    });
}

void EditorWindow::removePage(EditorPage& page) {
    m_tabs->removeTab(m_tabs->indexOf(&page));
    page.deleteLater(); // it may be what calls
    if (m_tabs->count() == 0) newPage();
}

void EditorWindow::showState(EditorPage& page) {
    const int index = m_tabs->indexOf(&page);
    const QString mark = page.file().isModified() ? QStringLiteral("● ") : QString();
    // An ampersand in a name is none of the tab bar's shortcuts.
    const QString label = mark + page.file().name().replace(u'&', QStringLiteral("&&"));
    if (label != m_tabs->tabText(index)) {
        m_tabs->setTabText(index, label);
        m_tabs->setTabToolTip(index, QDir::toNativeSeparators(page.file().path()));
    }
    if (&page != currentPage()) return;
    showTitle();
    Q_EMIT currentPageChanged();
}

void EditorWindow::showTitle() {
    EditorPage* const page = currentPage();
    if (!page) return;
    const QString title = tr("%1[*] – Tessarine Editor").arg(page->file().name());
    if (title != windowTitle()) setWindowTitle(title);
    if (page->file().isModified() != isWindowModified()) setWindowModified(page->file().isModified());
}

void EditorWindow::followSettings() {
    m_look = lookOf(m_services.settings.viewOptions());
    setPalette(m_look.palette);
    for (EditorPage* const page : pages())
        page->applyLook(m_look);
    Q_EMIT currentPageChanged();
}

void EditorWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
    for (EditorPage* const page : pages())
        page->file().checkDisk();
}

void EditorWindow::closeEvent(QCloseEvent* event) {
    if (!pageToAskFor()) {
        m_services.settings.setWindowGeometry(saveGeometry());
        event->accept();
        return;
    }
    event->ignore();
    m_discarded.clear();
    closeNext();
}

EditorPage* EditorWindow::pageToAskFor() const {
    for (EditorPage* const page : pages())
        if (page->file().isModified() && !m_discarded.contains(page)) return page;
    return nullptr;
}

// One question after the other; the first that is cancelled keeps the window, and every page.
void EditorWindow::closeNext() {
    EditorPage* const page = pageToAskFor();
    if (!page) {
        close();
        return;
    }
    m_tabs->setCurrentWidget(page);
    askToClose(*page, [this, page](bool mayClose) {
        if (!mayClose) {
            m_discarded.clear();
            return;
        }
        if (page->file().isModified()) m_discarded.insert(page);
        closeNext();
    });
}

} // namespace tessarine::editor
