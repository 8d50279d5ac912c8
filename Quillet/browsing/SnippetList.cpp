#include "Quillet/browsing/SnippetList.h"

#include "Quillet/browsing/SnippetRowDelegate.h"
#include "platform/screens/appearance/Symbol.h"

#include <QtGui/QClipboard>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QScroller>

namespace quillet {

SnippetList::SnippetList(SnippetListModel& viewModel, QWidget* parent)
    : QTreeView(parent)
    , m_viewModel(&viewModel)
    , m_tree(viewModel) {
    setAccessibleName(QStringLiteral("Quillet"));
    setHeaderHidden(true);
    setFrameShape(QFrame::NoFrame);
    setRootIsDecorated(false);
    setIndentation(0);
    setMouseTracking(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setExpandsOnDoubleClick(false);
    setItemDelegate(new SnippetRowDelegate(this));
    QScroller::grabGesture(viewport(), QScroller::TouchGesture);
    setModel(&m_tree);

    connect(&m_tree, &QAbstractItemModel::modelAboutToBeReset, this, &SnippetList::rememberState);
    connect(&m_tree, &QAbstractItemModel::modelReset, this, &SnippetList::restoreState);
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex& row) { m_expanded.insert(m_tree.keyOf(row)); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex& row) { m_expanded.erase(m_tree.keyOf(row)); });
    connect(this, &QTreeView::clicked, this, &SnippetList::activate);
    connect(this, &QTreeView::activated, this, [this](const QModelIndex& row) {
        // A click has acted already; some styles activate with it as well.
        if (QGuiApplication::mouseButtons() == Qt::NoButton && hasFocus()) activate(row);
    });
}

void SnippetList::activate(const QModelIndex& index) {
    const auto snippet = m_tree.snippetAt(index);
    if (!snippet) {
        setExpanded(index, !isExpanded(index));
        return;
    }
    m_selectedSnippet = snippet.get();
    m_selectedGroup = m_tree.keyOf(index.parent());
    if (onSelectSnippet) onSelectSnippet(snippet);
}

void SnippetList::select(const std::shared_ptr<Snippet>& snippet) {
    for (const auto& item : m_viewModel->listItems.value())
        if (item->type() == ListItemType(snippet)) return;
    m_selectedSnippet = nullptr;
    clearSelection();
}

void SnippetList::rememberState() {
    m_scroll = verticalScrollBar()->value();
}

void SnippetList::restoreState() {
    const QSignalBlocker quiet(this);
    for (int group = 0; group < m_tree.rowCount(); ++group) {
        const QModelIndex groupIndex = m_tree.index(group, 0);
        setExpanded(groupIndex, m_expanded.contains(m_tree.keyOf(groupIndex)));
        for (int member = 0; member < m_tree.rowCount(groupIndex); ++member) {
            const QModelIndex memberIndex = m_tree.index(member, 0, groupIndex);
            const bool isOpen = m_expanded.contains(m_tree.keyOf(memberIndex));
            if (isOpen) setExpanded(memberIndex, true);
            if (!isOpen || m_tree.keyOf(memberIndex) != m_selectedGroup) continue;
            for (int leaf = 0; leaf < m_tree.rowCount(memberIndex); ++leaf) {
                const QModelIndex leafIndex = m_tree.index(leaf, 0, memberIndex);
                if (m_tree.snippetAt(leafIndex).get() == m_selectedSnippet) setCurrentIndex(leafIndex);
            }
        }
    }
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(m_scroll);
}

// The delegate draws the chevrons.
void SnippetList::drawBranches(QPainter* /*painter*/, const QRect& /*rect*/,
                               const QModelIndex& /*index*/) const {}

void SnippetList::contextMenuEvent(QContextMenuEvent* event) {
    const QModelIndex row = event->reason() == QContextMenuEvent::Keyboard
                                ? currentIndex()
                                : indexAt(viewport()->mapFrom(this, event->pos()));
    const auto snippet = row.isValid() ? m_tree.snippetAt(row) : nullptr;
    if (!snippet) return;
    const QPoint at = event->reason() == QContextMenuEvent::Keyboard
                          ? viewport()->mapToGlobal(visualRect(row).center())
                          : event->globalPos();
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(platform::symbolIcon(QStringLiteral("doc.on.doc"), platform::Asset::Text),
                    QStringLiteral("Copy Snippet"), [snippet] {
                        if (const auto code = snippet->readCode())
                            QGuiApplication::clipboard()->setText(*code);
                    });
    menu->addAction(platform::symbolIcon(QStringLiteral("trash"), platform::Asset::SystemRed),
                    QStringLiteral("Delete Snippet"), [this, snippet] {
                        m_viewModel->snippetService().remove(*snippet);
                        if (onDeleteSnippet) onDeleteSnippet(snippet);
                    });
    menu->popup(at);
}

} // namespace quillet
