#include "Quillet/screens/info/TagCarouselView.h"

#include "Quillet/core/Tag.h"
#include "Quillet/screens/info/ChipRow.h"
#include "Quillet/screens/info/RowButton.h"
#include "Quillet/screens/info/TagChip.h"

#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace quillet {

TagCarouselView::TagCarouselView(std::function<void()> onEditTags, QWidget* parent)
    : QWidget(parent) {
    auto* button = new RowButton(QStringLiteral("tag.fill"), QStringLiteral("Tags"), this);
    connect(button, &QAbstractButton::clicked, this, std::move(onEditTags));
    m_row = new ChipRow(QStringLiteral("Tags"), button, this);
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(m_row);
}

void TagCarouselView::setSnippet(std::shared_ptr<Snippet> snippet) {
    const bool isOther = snippet != m_snippet;
    m_snippet = std::move(snippet);
    refresh();
    if (isOther) m_row->scrollToStart();
}

void TagCarouselView::refresh() {
    std::vector<TagChip*> chips;
    if (m_snippet)
        for (auto* object : m_snippet->toMany(Snippet::Tags))
            chips.push_back(chipOf(std::static_pointer_cast<Tag>(object->shared_from_this())));
    m_chips = std::move(chips);
    m_row->setChips({m_chips.begin(), m_chips.end()});
}

// The one that is there stays, so that the row does not move.
TagChip* TagCarouselView::chipOf(const std::shared_ptr<Tag>& tag) {
    const auto known = std::ranges::find(m_chips, tag, &TagChip::tag);
    if (known == m_chips.end()) return new TagChip(tag, this);
    (*known)->refresh();
    return *known;
}

} // namespace quillet
