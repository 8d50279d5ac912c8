#include "Tessarine/view/TextViewUpdates.h"

#include <utility>

namespace tessarine {

void TextViewUpdates::textViewDidScroll() {
    m_changes.scrolling = true;
    schedule();
}

void TextViewUpdates::textViewDidMoveCaret() {
    m_changes.caret = true;
    schedule();
}

// Comes before the painting that the same changes ask for, as the toolkit does that last.
void TextViewUpdates::schedule() {
    if (std::exchange(m_isScheduled, true)) return;
    QMetaObject::invokeMethod(&m_queue, [this] { deliver(); }, Qt::QueuedConnection);
}

// What the layout changes is part of it.
void TextViewUpdates::deliver() {
    m_receiver.layoutTextView();
    m_isScheduled = false;
    m_receiver.textViewHasChanged(std::exchange(m_changes, {}));
}

} // namespace tessarine
