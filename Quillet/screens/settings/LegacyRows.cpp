#include "Quillet/screens/settings/LegacyRows.h"

#include "platform/screens/list/ListView.h"

namespace quillet {

using platform::ListView;

namespace {

constexpr int firstSnippetRow = 1; // below the heading

} // namespace

LegacyRows::LegacyRows(LegacyModel& model, QObject* parent)
    : QAbstractListModel(parent)
    , m_snippets(model.legacySnippets().value())
    , m_subscription(model.legacySnippets().observeChanges([this](const auto& snippets) {
        beginResetModel();
        m_snippets = snippets;
        endResetModel();
    })) {}

int LegacyRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : firstSnippetRow + static_cast<int>(m_snippets.size());
}

QVariant LegacyRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (index.row() < firstSnippetRow) return headingData(role);
    return snippetData(*m_snippets.at(static_cast<std::size_t>(index.row() - firstSnippetRow)), role);
}

QVariant LegacyRows::headingData(int role) {
    if (role == ListView::StyleRole) return static_cast<int>(ListView::RowStyle::SectionHeader);
    return role == Qt::DisplayRole || role == ListView::KeyRole ? QStringLiteral("Snippets") : QVariant();
}

QVariant LegacyRows::snippetData(const Snippet& snippet, int role) {
    switch (role) {
    case Qt::DisplayRole:
        return snippet.title();
    case ListView::DetailRole:
        return snippet.language() ? QVariant(*snippet.language()) : QVariant();
    case ListView::KeyRole:
        return snippet.objectID().toString();
    default:
        return {};
    }
}

} // namespace quillet
