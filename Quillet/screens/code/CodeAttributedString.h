#pragma once

#include "platform/foundation/AttributedString.h"
#include "platform/foundation/Timer.h"
#include "platform/highlightr/Highlightr.h"
#include "platform/screens/text/TextView.h"

#include <memory>
#include <optional>

namespace quillet {

// Keeps the text of a text view coloured: after a change of the text, the language or the theme it highlights
// off the main thread and colours what is still the same text. One highlight at a time; a change meanwhile
// starts the next when it ends. Main thread.
class CodeAttributedString : public QObject {
    Q_OBJECT

public:
    // `view` outlives this.
    explicit CodeAttributedString(platform::TextView& view);

    // Shared with highlights that are under way.
    const std::shared_ptr<platform::Highlightr>& highlightr() const { return m_highlightr; }

    // The font of the code, which themes do not have one of their own for.
    void setCodeFont(const QFont& font);

    // Replaces the whole text, as TextView::setText(), and shows it in these colours until those of its
    // language are known. A text that is on screen already stays as it is, caret and undo history too, and
    // only gets the colours.
    void setAttributedString(const platform::AttributedString& string);

    // None means that the highlighter is to find out.
    void setLanguage(const std::optional<QString>& language);
    // Takes on the font and colours of the highlighter's theme, and colours anew.
    void themeChanged();

    bool isHighlighting() const { return m_isRunning || m_delay.isActive(); }

Q_SIGNALS:
    void highlightingChanged();

private:
    void start();
    void finish(const QString& language, const platform::AttributedString& result);

    platform::TextView* m_view;
    std::shared_ptr<platform::Highlightr> m_highlightr;
    std::optional<QString> m_language;
    platform::Timer m_delay; // lets a burst of keystrokes be one highlight
    bool m_isRunning = false;
};

} // namespace quillet
