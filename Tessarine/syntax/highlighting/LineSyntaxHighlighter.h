#pragma once

#include "Tessarine/syntax/highlighting/LineSyntaxHighlighterInput.h"
#include "Tessarine/syntax/highlighting/TreeSitterSyntaxHighlighterError.h"
#include "Tessarine/theme/DefaultTheme.h"

#include <expected>
#include <functional>
#include <memory>

namespace tessarine {

// Gives the lines of a document their colours and fonts, one line at a time. Thread: the main one.
class LineSyntaxHighlighter {
public:
    using Result = std::expected<void, TreeSitterSyntaxHighlighterError>;
    using Completion = std::move_only_function<void(const Result&)>;

    LineSyntaxHighlighter() = default;
    LineSyntaxHighlighter(const LineSyntaxHighlighter&) = delete;
    LineSyntaxHighlighter& operator=(const LineSyntaxHighlighter&) = delete;
    virtual ~LineSyntaxHighlighter() = default;

    // Never null.
    const std::shared_ptr<const Theme>& theme() const { return m_theme; }

    void setTheme(std::shared_ptr<const Theme> theme) { m_theme = std::move(theme); }

    // In points.
    double kern() const { return m_kern; }

    void setKern(double kern) { m_kern = kern; }

    // Whether there is anything to highlight by.
    virtual bool canHighlight() const = 0;

    // What text looks like that no capture touches, in place of all attributes that the string has.
    void setDefaultAttributes(AttributedString& attributedString) const;

    // Adds to the attributes what the syntax says.
    virtual void syntaxHighlight(const LineSyntaxHighlighterInput& input) = 0;

    // The same, with the search in the background: of the text and the syntax as they are now. The attributes
    // are added on the main thread, before the completion is called there; after a failure they are as they
    // were.
    virtual void syntaxHighlight(LineSyntaxHighlighterInput input, Completion completion) = 0;

    // Calls off the latest highlight in the background, until its completion has run.
    virtual void cancel() = 0;

private:
    std::shared_ptr<const Theme> m_theme = std::make_shared<DefaultTheme>();
    double m_kern = 0;
};

} // namespace tessarine
