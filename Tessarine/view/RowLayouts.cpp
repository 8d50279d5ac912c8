#include "Tessarine/view/RowLayouts.h"

#include <iterator>
#include <utility>

namespace tessarine {

namespace {

constexpr qsizetype unitsKept = 32'768; // some screens of text

} // namespace

const RowLayout& RowLayouts::layoutOf(const RowText& row) {
    if (const auto known = m_places.find(&row); known != m_places.end())
        m_entries.splice(m_entries.begin(), m_entries, known->second);
    else {
        m_entries.emplace_front(row, m_style);
        m_places.emplace(&row, m_entries.begin());
        m_units += row.text.size();
        makeRoom();
    }
    return m_entries.front().layout;
}

void RowLayouts::remove(const RowText& row) {
    if (const auto known = m_places.find(&row); known != m_places.end()) erase(known->second);
}

void RowLayouts::setStyle(UserInterfaceStyle style) {
    if (std::exchange(m_style, style) == style) return;
    m_entries.clear();
    m_places.clear();
    m_units = 0;
}

void RowLayouts::erase(Entries::iterator entry) {
    m_units -= entry->row.text.size();
    m_places.erase(&entry->row);
    m_entries.erase(entry);
}

void RowLayouts::makeRoom() {
    while (m_units > unitsKept && m_entries.size() > 1)
        erase(std::prev(m_entries.end()));
}

} // namespace tessarine
