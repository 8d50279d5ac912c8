#pragma once

#include "platform/foundation/AttributedString.h"
#include "platform/highlightr/Highlightr.h"
#include "platform/screens/text/TextView.h"

#include <QtCore/QTimer>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>

namespace quillet {

// Keeps the text of a text view coloured: after a change of the text, the language or the theme it highlights
// off the main thread and colours what is still the same text. One highlight at a time; a change meanwhile
// starts the next when it ends. Of a long text that has no colours yet the start is coloured first.
//
// Main thread, where a key costs a timer's start and an answer the painting of what is in view.
class CodeAttributedString : public QObject {
    Q_OBJECT

public:
    // `view` outlives this.
    explicit CodeAttributedString(platform::TextView& view);
    ~CodeAttributedString() override;

    // Shared with highlights that are under way.
    const std::shared_ptr<platform::Highlightr>& highlightr() const { return m_highlightr; }

    // The font of the code at 100 %, which themes do not have one of their own for.
    void setCodeFont(const QFont& font);

    // Replaces the whole text, as TextView::setText(), and shows it in these colours until those of its
    // language are known. A text that is on screen already stays as it is, caret and undo history too, and
    // only gets the colours; it keeps those of its language where it has them.
    void setAttributedString(const platform::AttributedString& string);

    // None means that the highlighter is to find out.
    void setLanguage(const std::optional<QString>& language);
    // Takes on the font and colours of the highlighter's theme, and colours anew.
    void themeChanged();

    bool isHighlighting() const { return m_isRunning || m_delay.isActive(); }

Q_SIGNALS:
    void highlightingChanged();

private:
    using Number = quint64;

    // What a highlight works on, on any thread.
    struct Job;

    struct Answer {
        platform::LineColours colours;
        std::chrono::milliseconds duration{0};
    };

    static void run(const Job& job);
    // Nothing where nobody wants it any more.
    static std::shared_ptr<Answer> highlight(const Job& job, const QString& text);
    static void showStart(const Job& job, const QString& text);

    void textChanged();
    void startIn(std::chrono::milliseconds delay);
    void start();
    void show(Number number, const platform::LineColours& colours);
    void finish(Number number, const std::shared_ptr<Answer>& answer);

    platform::TextView* m_view;
    std::shared_ptr<platform::Highlightr> m_highlightr;
    std::optional<QString> m_language;
    QTimer m_delay; // lets a burst of keystrokes be one highlight
    std::chrono::milliseconds m_lastDuration{0};
    bool m_isRunning = false;
    bool m_isDue = false;         // as soon as the running one has ended
    bool m_hasOwnColours = false; // of this very text, in its language
    // Of what is to be coloured now; another one is stale. Read by running highlights.
    std::shared_ptr<std::atomic<Number>> m_latest;
};

} // namespace quillet
