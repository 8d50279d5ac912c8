#include "Quillet/screens/info/TagCarouselView.h"

#include "Quillet/browsing/TagColors.h"
#include "Quillet/core/Tag.h"
#include "Quillet/screens/info/ChipRow.h"
#include "Quillet/screens/info/RowButton.h"
#include "Quillet/screens/info/TagChip.h"

#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

std::optional<platform::Asset> borderOf(const Tag& tag) {
    const auto index = static_cast<std::size_t>(tag.colorIndex()); // a negative one is out of range as well
    if (index >= tagColors.size()) return std::nullopt;
    return tagColors[index].asset;
}

} // namespace

TagCarouselView::TagCarouselView(std::function<void()> onEditTags, QWidget* parent)
    : QWidget(parent) {
    auto* button = new RowButton(QStringLiteral("tag.fill"), QStringLiteral("Tags"), this);
    connect(button, &QAbstractButton::clicked, this, std::move(onEditTags));
    m_row = new ChipRow(button, this);
    m_row->setAccessibleName(QStringLiteral("Tags"));
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(m_row);
}

void TagCarouselView::setSnippet(std::shared_ptr<Snippet> snippet) {
    m_snippet = std::move(snippet);
    refresh();
}

void TagCarouselView::refresh() {
    std::vector<QWidget*> chips;
    if (m_snippet)
        for (const auto* object : m_snippet->toMany(Snippet::Tags)) {
            const auto& tag = static_cast<const Tag&>(*object);
            chips.push_back(new TagChip(tag.title(), borderOf(tag), this));
        }
    m_row->setChips(chips);
}

} // namespace quillet
