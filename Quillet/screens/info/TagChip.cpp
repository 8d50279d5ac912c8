#include "Quillet/screens/info/TagChip.h"

namespace quillet {

TagChip::TagChip(const QString& title, std::optional<platform::Asset> border, QWidget* parent)
    : Chip(parent)
    , m_border(border) {
    setTitle(title);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

Chip::Look TagChip::look() const {
    return {
        .fill = std::nullopt, .border = m_border, .text = platform::color(platform::Asset::TextSecondary)};
}

int TagChip::leastWidth() const {
    return 90;
}

} // namespace quillet
