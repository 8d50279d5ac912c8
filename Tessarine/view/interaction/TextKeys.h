#pragma once

class QKeyEvent;

namespace tessarine {

class TextClipboard;
class TextView;

// What keys do in a text view, as the desktop has them.
class TextKeys {
public:
    // Borrows both.
    TextKeys(TextView& textView, TextClipboard& clipboard)
        : m_textView(textView)
        , m_clipboard(clipboard) {}

    // Whether the key is the view's even where a window has a shortcut on it.
    bool claims(const QKeyEvent& event) const;

    // False if it means nothing here.
    bool press(const QKeyEvent& event);

private:
    bool canType(const QKeyEvent& event) const;
    bool escape();

    TextView& m_textView;
    TextClipboard& m_clipboard;
};

} // namespace tessarine
