#include "Quillet/browsing/SnippetList.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

namespace quillet {

SnippetList::SnippetList(SnippetListModel& viewModel, QWidget* parent)
    : ListView(parent)
    , m_viewModel(&viewModel)
    , m_tree(viewModel) {
    setAccessibleName(QStringLiteral("Quillet"));
    setOpenRows({[this](const QModelIndex& row) { return m_openRows.contains(m_tree.keyOf(row)); },
                 [this](const QModelIndex& row, bool isOpen) {
                     if (isOpen)
                         m_openRows.insert(m_tree.keyOf(row));
                     else
                         m_openRows.erase(m_tree.keyOf(row));
                 }});
    contextMenu = [this](const QModelIndex& row) -> std::optional<platform::Menu> {
        const auto snippet = m_tree.snippetAt(row);
        return snippet ? std::optional(menuFor(snippet)) : std::nullopt;
    };
    connect(this, &ListView::rowActivated, this, [this](const QModelIndex& row) {
        if (onSelectSnippet) onSelectSnippet(m_tree.snippetAt(row));
    });
    setModel(&m_tree);
}

platform::Menu SnippetList::menuFor(const std::shared_ptr<Snippet>& snippet) {
    const auto copy = [snippet] {
        if (const auto code = snippet->readCode()) QGuiApplication::clipboard()->setText(*code);
    };
    const auto remove = [this, snippet] {
        m_viewModel->snippetService().remove(*snippet);
        if (onDeleteSnippet) onDeleteSnippet(snippet);
    };
    return {{},
            {platform::MenuAction{QStringLiteral("Copy Snippet"), QStringLiteral("doc"), copy},
             platform::MenuAction{QStringLiteral("Delete Snippet"), QStringLiteral("trash"), remove,
                                  platform::MenuAction::Role::Destructive}}};
}

void SnippetList::select(const std::shared_ptr<Snippet>& snippet) {
    for (const auto& item : m_viewModel->listItems.value())
        if (item->type() == ListItemType(snippet)) return;
    clearSelection();
}

} // namespace quillet
