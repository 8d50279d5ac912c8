#pragma once

#include "platform/screens/controllers/ViewController.h"

#include <optional>

namespace quillet {

class OptionList;

class ListWithSelectionViewControllerDelegate {
public:
    virtual ~ListWithSelectionViewControllerDelegate() = default;

    // The user chose it; the list goes by itself after that.
    virtual void didSelectOption(const QString& option) = 0;
};

// A searchable list of options with the selected one marked. Choosing one closes it, as its button Close
// does, which it has where no other button leads back. Main thread.
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
    void didClose();
    void choose(const QString& option);

    OptionList* m_options;
};

} // namespace quillet
