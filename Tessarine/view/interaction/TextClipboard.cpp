#include "Tessarine/view/interaction/TextClipboard.h"

#include "Tessarine/textview/TextView.h"
#include "Tessarine/view/QtConversions.h"
#include "Tessarine/view/interaction/SnapshotMimeData.h"

#include <QtGui/QGuiApplication>

namespace tessarine {

bool TextClipboard::canCopy() const {
    return m_textView.selectedRange() && m_textView.selectedRange()->length != 0;
}

bool TextClipboard::canCut() const {
    return canCopy() && m_textView.isEditable();
}

bool TextClipboard::canPaste() const {
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    return m_textView.isEditable() && data && data->hasText();
}

bool TextClipboard::canPasteSelection() const {
    return m_textView.isEditable() && QGuiApplication::clipboard()->supportsSelection();
}

void TextClipboard::cut() {
    if (!canCut()) return;
    copy();
    m_textView.deleteText(TextDeletion::backward);
}

void TextClipboard::copy() const {
    if (auto data = selectedText()) QGuiApplication::clipboard()->setMimeData(data.release());
}

void TextClipboard::paste(QClipboard::Mode mode) {
    if (const QMimeData* const data = QGuiApplication::clipboard()->mimeData(mode)) paste(*data);
}

void TextClipboard::paste(const QMimeData& data) {
    const QString text = data.text();
    if (!text.isEmpty()) m_textView.paste(fromQt(text));
}

void TextClipboard::offerSelection() const {
    QClipboard* const clipboard = QGuiApplication::clipboard();
    if (!clipboard->supportsSelection()) return;
    if (auto data = selectedText()) clipboard->setMimeData(data.release(), QClipboard::Selection);
}

std::unique_ptr<QMimeData> TextClipboard::selectedText() const {
    if (!canCopy()) return nullptr;
    const StringView& text = *m_textView.document().stringView;
    return std::make_unique<SnapshotMimeData>(text.snapshot(),
                                              rangeInText(*m_textView.selectedRange(), text));
}

} // namespace tessarine
