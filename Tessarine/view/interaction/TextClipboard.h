#pragma once

#include <QtGui/QClipboard>

#include <memory>

class QMimeData;

namespace tessarine {

class TextView;

// What a text view gives to the desktop's clipboards and takes from them.
class TextClipboard {
public:
    // Borrows it.
    explicit TextClipboard(TextView& textView)
        : m_textView(textView) {}

    bool canCopy() const;
    bool canCut() const;
    bool canPaste() const;
    bool canPasteSelection() const;

    void cut();
    void copy() const;

    // With the document's line endings, in place of the selection.
    void paste(QClipboard::Mode mode = QClipboard::Clipboard);
    void paste(const QMimeData& data);

    // The selection becomes what a middle click pastes, on desktops that have it so.
    void offerSelection() const;

    // Null without a selection.
    std::unique_ptr<QMimeData> selectedText() const;

private:
    TextView& m_textView;
};

} // namespace tessarine
