#include "Quillet/browsing/SnippetList.h"

#include "Quillet/core/FolderService.h"
#include "Quillet/core/TagService.h"
#include "platform/screens/controllers/AlertController.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <array>

namespace quillet {

using platform::MenuAction;

SnippetList::SnippetList(SnippetListModel& viewModel, platform::ViewController& presenter, QWidget* parent)
    : ListView(parent)
    , m_viewModel(&viewModel)
    , m_presenter(&presenter)
    , m_tree(viewModel) {
    setAccessibleName(QStringLiteral("Quillet"));
    setOpenRows({[this](const QModelIndex& index) { return contains(index); },
                 [this](const QModelIndex& index, bool isOpen) { setExpanded(index, isOpen); }});
    contextMenu = [this](const QModelIndex& index) { return menuOf(index); };
    swipeActions = [this](const QModelIndex& index) {
        std::vector<platform::SwipeAction> actions;
        if (auto deletion = deletionOf(index))
            actions.push_back({deletion->title, deletion->symbol, platform::SwipeAction::Role::Destructive,
                               std::move(deletion->handler)});
        return actions;
    };
    connect(this, &ListView::rowActivated, this, &SnippetList::choose);
    connect(this, &ListView::buttonPressed, this, &SnippetList::pressHeaderButton);
    connect(this, &ListView::deleteRequested, this, [this](const QModelIndex& index) {
        if (const auto deletion = deletionOf(index)) deletion->handler();
    });
    setModel(&m_tree);
    // Behind the view's own, which keeps the selection where the row is still there.
    connect(&m_tree, &QAbstractItemModel::modelReset, this, &SnippetList::followSelection);
}

bool* SnippetList::shownOf(const QModelIndex& index) {
    if (index.parent().isValid()) return nullptr;
    const std::array groups{&m_expanded.showFolders, &m_expanded.showTags, &m_expanded.showLanguages};
    return groups.at(static_cast<std::size_t>(index.row()));
}

bool SnippetList::contains(const QModelIndex& index) {
    if (const bool* shown = shownOf(index)) return *shown;
    const auto item = m_tree.itemAt(index);
    return item && m_expanded.contains(item->type());
}

void SnippetList::setExpanded(const QModelIndex& index, bool isExpanded) {
    if (bool* shown = shownOf(index))
        *shown = isExpanded;
    else
        m_expanded.set(m_tree.itemAt(index)->type(), isExpanded);
}

void SnippetList::choose(const QModelIndex& index) {
    const auto snippet = m_tree.snippetAt(index);
    if (!snippet) return;
    m_selectedSnippet = snippet;
    if (onSelectSnippet) onSelectSnippet(snippet);
}

void SnippetList::followSelection() {
    if (!m_selectedSnippet || selectionModel()->hasSelection()) return;
    if (!m_selectedSnippet->context()) {
        m_selectedSnippet = nullptr;
        return;
    }
    if (const QModelIndex row = openRowOf(*m_selectedSnippet); row.isValid())
        selectionModel()->select(row, QItemSelectionModel::ClearAndSelect);
}

QModelIndex SnippetList::openRowOf(const Snippet& snippet) const {
    for (int group = 0; group < m_tree.rowCount(); ++group) {
        const QModelIndex above = m_tree.index(group, 0);
        for (int row = 0; isOpen(above) && row < m_tree.rowCount(above); ++row) {
            const QModelIndex member = m_tree.index(row, 0, above);
            for (int leaf = 0; isOpen(member) && leaf < m_tree.rowCount(member); ++leaf)
                if (const auto index = m_tree.index(leaf, 0, member);
                    m_tree.snippetAt(index).get() == &snippet)
                    return index;
        }
    }
    return {};
}

void SnippetList::pressHeaderButton(const QModelIndex& index) {
    const auto& run = index.row() == SnippetTree::FolderGroup ? onAddFolder : onEditTags;
    if (run) run();
}

void SnippetList::select(const std::shared_ptr<Snippet>& snippet) {
    if (!snippet) return;
    const bool isListed = std::ranges::any_of(m_viewModel->listItems.value(), [&snippet](const auto& item) {
        return item->type() == ListItemType(snippet);
    });
    m_selectedSnippet = isListed ? snippet : nullptr;
    if (!isListed) clearSelection();
}

std::optional<platform::Menu> SnippetList::menuOf(const QModelIndex& index) {
    if (const auto snippet = m_tree.snippetAt(index)) return snippetMenu(snippet);
    if (auto deletion = deletionOf(index)) return platform::Menu{{}, {std::move(*deletion)}};
    return std::nullopt;
}

platform::Menu SnippetList::snippetMenu(const std::shared_ptr<Snippet>& snippet) {
    const auto copy = [snippet] {
        if (const auto code = snippet->readCode()) QGuiApplication::clipboard()->setText(*code);
    };
    const auto addToFolder = [this, snippet] {
        if (onAddSnippetToFolder) onAddSnippetToFolder(snippet);
    };
    return {{},
            {MenuAction{QStringLiteral("Copy Snippet"), QStringLiteral("doc"), copy}, deletionOf(snippet),
             MenuAction{QStringLiteral("Add to folder"), QStringLiteral("folder.fill"), addToFolder}}};
}

MenuAction SnippetList::deletionOf(const std::shared_ptr<Snippet>& snippet) {
    return {QStringLiteral("Delete Snippet"), QStringLiteral("trash"),
            [this, snippet] { deleteSnippet(snippet); }, MenuAction::Role::Destructive};
}

std::optional<MenuAction> SnippetList::deletionOf(const QModelIndex& index) {
    if (const auto snippet = m_tree.snippetAt(index)) return deletionOf(snippet);
    const auto item = m_tree.itemAt(index);
    if (!item) return std::nullopt;
    if (const auto* tag = std::get_if<std::shared_ptr<Tag>>(&item->type()))
        return confirmedDeletion<Tag, TagService>(tagKind, *tag);
    if (const auto* folder = std::get_if<std::shared_ptr<Folder>>(&item->type()))
        return confirmedDeletion<Folder, FolderService>(folderKind, *folder);
    return std::nullopt;
}

void SnippetList::deleteSnippet(const std::shared_ptr<Snippet>& snippet) {
    m_viewModel->snippetService().remove(*snippet);
    if (m_selectedSnippet == snippet) m_selectedSnippet = nullptr;
    if (onDeleteSnippet) onDeleteSnippet(snippet);
}

template <typename Item, typename Service>
MenuAction SnippetList::confirmedDeletion(const ItemKind& kind, std::shared_ptr<Item> item) {
    const auto remove = [&kind, item] {
        Service::shared().remove(*item, Service::Snippets::Keep);
        CoreDataStack::shared().save(kind.deleted);
    };
    const auto ask = [this, &kind, item, remove] {
        using platform::AlertAction;
        auto alert = std::make_unique<platform::AlertController>(kind.deleteTitle(),
                                                                 kind.deleteQuestion(item->title()));
        alert->addAction({kind.deleteTitle(), AlertAction::Style::Destructive, remove});
        alert->addAction({QStringLiteral("Cancel"), AlertAction::Style::Cancel, {}});
        m_presenter->present(std::move(alert));
    };
    return {kind.deleteTitle(), QStringLiteral("trash.fill"), ask, MenuAction::Role::Destructive};
}

} // namespace quillet
