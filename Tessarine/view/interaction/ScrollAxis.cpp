#include "Tessarine/view/interaction/ScrollAxis.h"

#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <cmath>

namespace tessarine {

namespace {

constexpr double largestUnitCount = 1 << 30; // the bar adds its page to it

} // namespace

void ScrollAxis::show(const State& state) {
    m_state = state;
    m_state.maximum = std::max(state.minimum, state.maximum);
    m_unit = std::max(1.0, (m_state.maximum - m_state.minimum + state.page) / largestUnitCount);
    m_value = units(std::clamp(state.offset, m_state.minimum, m_state.maximum) - m_state.minimum);
    m_bar.setPageStep(units(state.page));
    m_bar.setSingleStep(std::max(1, units(state.line)));
    m_bar.setRange(0, static_cast<int>(std::ceil((m_state.maximum - m_state.minimum) / m_unit)));
    m_bar.setValue(m_value);
}

double ScrollAxis::offset() const {
    if (m_bar.value() == m_value) return m_state.offset;
    return std::min(m_state.minimum + m_bar.value() * m_unit, m_state.maximum);
}

int ScrollAxis::units(double points) const {
    return static_cast<int>(std::lround(points / m_unit));
}

} // namespace tessarine
