#pragma once

#include "Quillet/screens/details/OptionRows.h"
#include "platform/screens/controllers/ViewController.h"

#include <optional>

namespace quillet {

class LanguagePickerDelegate {
public:
    virtual ~LanguagePickerDelegate() = default;

    // The user chose it; the picker stays.
    virtual void didPickLanguage(const QString& language) = 0;
};

enum class LanguagePickerViewControllerMode { settings, select };

// The languages, one of them checked, for a popover; or, in `settings`, each with a switch. Main thread.
class LanguagePickerViewController : public platform::ViewController {
    Q_OBJECT

public:
    explicit LanguagePickerViewController(
        LanguagePickerViewControllerMode mode = LanguagePickerViewControllerMode::select,
        QWidget* parent = nullptr);

    LanguagePickerDelegate* delegate = nullptr; // outlives this

    const std::optional<QString>& selectedLanguage() const { return m_languages.selectedOption(); }

    void setSelectedLanguage(const std::optional<QString>& language);

protected:
    void viewDidLoad() override;

private:
    void showChoice();
    void showSwitches();
    void choose(const QModelIndex& index);

    LanguagePickerViewControllerMode m_mode;
    OptionRows m_languages;
};

} // namespace quillet
