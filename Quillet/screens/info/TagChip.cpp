#include "Quillet/screens/info/TagChip.h"

#include "Quillet/browsing/TagColors.h"
#include "Quillet/screens/info/ChipFace.h"
#include "platform/screens/controls/PlainToolTip.h"

#include <QtGui/QPainter>

namespace quillet {

namespace {

constexpr int leastWidth = 90; // points

const TagColor* colorOf(const Tag& tag) {
    const auto index = static_cast<std::size_t>(tag.colorIndex()); // a negative one is out of range as well
    return index < tagColors.size() ? &tagColors[index] : nullptr;
}

} // namespace

TagChip::TagChip(std::shared_ptr<Tag> tag, QWidget* parent)
    : QLabel(parent)
    , m_tag(std::move(tag)) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    refresh();
}

void TagChip::refresh() {
    const auto* color = colorOf(*m_tag);
    setText(m_tag->title());
    setAccessibleName(m_tag->title());
    platform::setPlainToolTip(*this, isChipTitleCut(text()) ? text() : QString());
    setAccessibleDescription(color ? QString(color->name) : QString());
    updateGeometry();
    update();
}

QSize TagChip::sizeHint() const {
    return chipSize(text(), leastWidth);
}

void TagChip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const auto* color = colorOf(*m_tag);
    drawChip(painter, *this, text(),
             {.border = color ? std::optional(color->asset) : std::nullopt,
              .text = platform::color(platform::Asset::TextSecondary)});
}

} // namespace quillet
