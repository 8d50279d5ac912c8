#pragma once

#include "platform/screens/controllers/ViewController.h"

#include <optional>

namespace quillet {

class HighlightrView;
class OptionList;

class SearchSelectDelegate {
public:
    virtual ~SearchSelectDelegate() = default;

    // The user chose the theme; the picker stays.
    virtual void didSelectTheme(const QString& theme) = 0;
};

// Picks a theme from a searchable list. A preview shows the chosen one at once. It stays open until its
// button Close is pressed. Main thread.
class SearchSelectViewController : public platform::ViewController {
    Q_OBJECT

public:
    // Without a selected option the preview shows the theme "xcode".
    SearchSelectViewController(const QStringList& options, const std::optional<QString>& selectedOption,
                               QWidget* parent = nullptr);

    SearchSelectDelegate* delegate = nullptr; // outlives this

    static constexpr int codePreviewHeight = 160; // points

    HighlightrView& highlighterView() { return *m_highlighterView; }

private:
    QWidget* makePreview(const QString& theme);
    QWidget* makeHeader();
    void choose(const QString& theme);

    void didClose() { dismiss(); }

    HighlightrView* m_highlighterView = nullptr;
    OptionList* m_options;
};

} // namespace quillet
