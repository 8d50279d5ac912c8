#pragma once

#include "Quillet/screens/details/OptionRows.h"
#include "platform/foundation/Timer.h"

#include <QtCore/QSortFilterProxyModel>
#include <QtWidgets/QWidget>

#include <chrono>
#include <optional>

class QVBoxLayout;

namespace platform {
class ListView;
}

namespace quillet {

class SearchBar;

// Options below a search field, the selected one with a check mark. The search matches the start of an option
// and follows when nobody has typed for a while. The arrows move through the list, from the search field,
// too; a press, Return, or Space in the list chooses. Main thread.
class OptionList : public QWidget {
    Q_OBJECT

public:
    // `name` is what the list is called.
    OptionList(const QString& name, const QStringList& options, const std::optional<QString>& selectedOption,
               std::chrono::milliseconds debounce, QWidget* parent);

    // Stands between the search field and the rows, and becomes a child of this.
    void setHeader(QWidget* header);

    const std::optional<QString>& selectedOption() const { return m_options.selectedOption(); }

Q_SIGNALS:
    // By the user; it is the selected one by now.
    void chosen(const QString& option);

private:
    void applyFilter();
    void choose(const QModelIndex& index);
    // The selected one, else the first.
    QModelIndex start() const;

    OptionRows m_options;
    QSortFilterProxyModel m_filtered;
    SearchBar* m_searchBar;
    platform::ListView* m_list;
    QVBoxLayout* m_head;
    platform::Timer m_debounce;
};

} // namespace quillet
