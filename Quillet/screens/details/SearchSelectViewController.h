#pragma once

#include "Quillet/screens/details/OptionRows.h"
#include "Quillet/screens/details/SearchBar.h"
#include "platform/foundation/Timer.h"
#include "platform/screens/controllers/ViewController.h"

#include <QtCore/QSortFilterProxyModel>

#include <optional>

namespace platform {
class ListView;
}

namespace quillet {

class HighlightrView;

class SearchSelectDelegate {
public:
    virtual ~SearchSelectDelegate() = default;

    // The user chose the theme; the picker stays.
    virtual void didSelectTheme(const QString& theme) = 0;
};

// Picks a theme, which a preview shows at once. The search matches the start of a name. It stays open until
// it is closed. Main thread.
class SearchSelectViewController : public platform::ViewController {
    Q_OBJECT

public:
    SearchSelectViewController(const QStringList& options, const std::optional<QString>& selectedOption,
                               QWidget* parent = nullptr);

    SearchSelectDelegate* delegate = nullptr; // outlives this

    static constexpr int codePreviewHeight = 160; // points

    HighlightrView& highlighterView() { return *m_highlighterView; }

private:
    void applyFilter();
    void choose(const QModelIndex& index);

    void didClose() { dismiss(); }

    OptionRows m_options;
    QSortFilterProxyModel m_filtered;
    HighlightrView* m_highlighterView;
    SearchBar* m_searchBar;
    platform::ListView* m_list;
    platform::Timer m_debounce;
};

} // namespace quillet
