#include "Tessarine/view/RowLayouts.h"

#include <QtCore/QHash>

#include <utility>

namespace tessarine {

namespace {

constexpr qsizetype unitsKept = 131'072; // some screens of text, or one of long rows

} // namespace

std::size_t RowLayouts::Hash::operator()(const RowText* row) const {
    std::size_t hash = qHash(row->text);
    for (const RowText::Run& run : row->runs)
        hash = qHashMulti(hash, run.length, run.style.get());
    return hash;
}

const RowLayout& RowLayouts::layoutOf(const RowText& row) {
    if (const auto known = m_places.find(&row); known != m_places.end())
        m_entries.splice(m_entries.begin(), m_entries, known->second);
    else {
        m_entries.emplace_front(row, m_style);
        m_places.emplace(&m_entries.front().row, m_entries.begin());
        m_units += row.text.size();
        makeRoom();
    }
    return m_entries.front().layout;
}

void RowLayouts::setStyle(UserInterfaceStyle style) {
    if (std::exchange(m_style, style) == style) return;
    m_places.clear();
    m_entries.clear();
    m_units = 0;
}

void RowLayouts::makeRoom() {
    while (m_units > unitsKept && m_entries.size() > 1) {
        m_units -= m_entries.back().row.text.size();
        m_places.erase(&m_entries.back().row);
        m_entries.pop_back();
    }
}

} // namespace tessarine
