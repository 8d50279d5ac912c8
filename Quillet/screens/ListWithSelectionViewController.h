#pragma once

#include <QtCore/QSortFilterProxyModel>
#include <QtCore/QStringListModel>
#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

#include <functional>
#include <optional>

class QLineEdit;
class QListView;

namespace quillet {

// A searchable list of options with the selected one marked. The search matches the start of an option.
// Main thread.
class ListWithSelectionViewController : public QWidget {
    Q_OBJECT

public:
    ListWithSelectionViewController(const QString& title, const QStringList& options,
                                    const std::optional<QString>& selectedOption, QWidget* parent = nullptr);

    std::function<void(const QString&)> onSelect;
    std::function<void()> onClose;

protected:
    void focusInEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void applyFilter();
    void choose(const QModelIndex& index);

    QStringListModel m_options;
    QSortFilterProxyModel m_filtered;
    QLineEdit* m_searchBar;
    QListView* m_list;
    QTimer m_debounce;
};

} // namespace quillet
