#include "Tessarine/document/TextBranch.h"

#include <algorithm>

namespace tessarine {

void TextBranch::changedChild(std::int32_t index) {
    const std::int64_t length = m_children[index]->length();
    setLength(this->length() + length - m_lengths[index]);
    m_lengths[index] = length;
}

void TextBranch::insert(std::int32_t index, TextNodeRef child) {
    std::move_backward(&m_lengths[index], &m_lengths[m_count], &m_lengths[m_count] + 1);
    std::move_backward(&m_children[index], &m_children[m_count], &m_children[m_count] + 1);
    m_lengths[index] = child->length();
    setLength(length() + child->length());
    m_children[index] = std::move(child);
    ++m_count;
}

TextNodeRef TextBranch::take(std::int32_t index) {
    TextNodeRef child = std::move(m_children[index]);
    setLength(length() - m_lengths[index]);
    std::move(&m_lengths[index] + 1, m_lengths.data() + m_count, &m_lengths[index]);
    std::move(&m_children[index] + 1, m_children.data() + m_count, &m_children[index]);
    --m_count;
    return child;
}

void TextBranch::appendFrom(TextBranch& from, std::int32_t first) {
    std::int64_t moved = 0;
    for (std::int32_t i = first; i < from.m_count; ++i, ++m_count) {
        moved += m_lengths[m_count] = from.m_lengths[i];
        m_children[m_count] = std::move(from.m_children[i]);
    }
    setLength(length() + moved);
    from.setLength(from.length() - moved);
    from.m_count = first;
}

} // namespace tessarine
