#include "platform/screens/list/TypeAhead.h"

#include <QtWidgets/QApplication>

#include <algorithm>

namespace platform {

bool TypeAhead::isUnderWay() const {
    return m_sinceLast.isValid() && !m_sinceLast.hasExpired(QApplication::keyboardInputInterval());
}

TypeAhead::Search TypeAhead::type(const QString& text) {
    if (!isUnderWay()) m_typed.clear();
    m_sinceLast.start();
    m_typed += text;
    const bool isOneLetter = std::ranges::all_of(m_typed, [this](QChar c) { return c == m_typed.front(); });
    return isOneLetter ? Search{m_typed.left(1), false} : Search{m_typed, true};
}

} // namespace platform
