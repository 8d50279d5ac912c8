#pragma once

#include "platform/screens/controllers/ViewController.h"

#include <QtCore/QSortFilterProxyModel>
#include <QtCore/QStringListModel>
#include <QtCore/QTimer>

#include <functional>
#include <optional>

class QLineEdit;
class QListView;

namespace quillet {

// A searchable list of options with the selected one marked. The search matches the start of an option.
// Choosing one closes it, as its button Close does, which it has where no other button leads back. Main
// thread.
class ListWithSelectionViewController : public platform::ViewController {
    Q_OBJECT

public:
    ListWithSelectionViewController(const QString& title, const QStringList& options,
                                    const std::optional<QString>& selectedOption, QWidget* parent = nullptr);

    std::function<void(const QString&)> onSelect;

protected:
    void viewDidLoad() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isPushed() const;
    void close();
    void applyFilter();
    void choose(const QModelIndex& index);

    QStringListModel m_options;
    QSortFilterProxyModel m_filtered;
    QLineEdit* m_searchBar;
    QListView* m_list;
    QTimer m_debounce;
};

} // namespace quillet
