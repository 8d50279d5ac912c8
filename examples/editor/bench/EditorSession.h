#pragma once

#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <memory>

namespace tessarine {

// An editor in a window, as the session drives it. Lines count from 0.
class SessionEditor {
public:
    SessionEditor() = default;
    SessionEditor(const SessionEditor&) = delete;
    SessionEditor& operator=(const SessionEditor&) = delete;
    virtual ~SessionEditor() = default;

    // The window, and what in it takes keys and wheel.
    virtual QWidget& window() = 0;
    virtual QWidget& keyReceiver() = 0;
    virtual QWidget& wheelReceiver() = 0;

    // Reads the file and shows it, ready to be painted.
    virtual void open(const QString& path) = 0;
    virtual qint64 lineCount() = 0;
    // Puts the caret at the end of the line and has it in view.
    virtual void placeCaret(qint64 line) = 0;
    // Puts the caret into the middle of the first line.
    virtual void placeCaretInLine() = 0;
    virtual void scrollTo(qint64 line) = 0;
    virtual qint64 length() = 0;
};

// Opens, types, scrolls, jumps and quits by real events, and prints "key|median|p99" in milliseconds: until
// what an event changes is painted, and, with "Whole", until the whole window has been painted behind that.
// Memory is in multiples of the file's size. What is on one line is typed into only.
int runEditorSession(std::unique_ptr<SessionEditor> editor, const QString& path);

} // namespace tessarine
