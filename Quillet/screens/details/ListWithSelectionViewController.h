#pragma once

#include "Quillet/screens/details/OptionRows.h"
#include "Quillet/screens/details/SearchBar.h"
#include "platform/screens/controllers/ViewController.h"

#include <QtCore/QSortFilterProxyModel>
#include <QtCore/QTimer>

#include <optional>

namespace platform {
class ListView;
}

namespace quillet {

class ListWithSelectionViewControllerDelegate {
public:
    virtual ~ListWithSelectionViewControllerDelegate() = default;

    // The user chose it; the list goes by itself after that.
    virtual void didSelectOption(const QString& option) = 0;
};

// A searchable list of options with the selected one marked. The search matches the start of an option.
// Choosing one closes it, as its button Close does, which it has where no other button leads back. Main
// thread.
class ListWithSelectionViewController : public platform::ViewController {
    Q_OBJECT

public:
    ListWithSelectionViewController(const QString& title, const QStringList& options,
                                    const std::optional<QString>& selectedOption, QWidget* parent = nullptr);

    ListWithSelectionViewControllerDelegate* delegate = nullptr; // outlives this

protected:
    void viewDidLoad() override;

private:
    bool isPushed() const;
    void close();
    void applyFilter();
    void choose(const QModelIndex& index);

    OptionRows m_options;
    QSortFilterProxyModel m_filtered;
    SearchBar* m_searchBar;
    platform::ListView* m_list;
    QTimer m_debounce;
};

} // namespace quillet
