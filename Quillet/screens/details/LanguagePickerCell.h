#pragma once

#include "Quillet/core/Language.h"
#include "platform/screens/controls/SwitchRow.h"

#include <optional>

namespace quillet {

class LanguagePickerCell;

class LanguagePickerCellDelegate {
public:
    virtual ~LanguagePickerCellDelegate() = default;

    virtual void didToggle(LanguagePickerCell& cell) = 0;
};

// A language with a switch. No list of hidden languages is kept anywhere: the switch tells its delegate, and
// that is all. Main thread.
class LanguagePickerCell : public QWidget {
    Q_OBJECT

public:
    explicit LanguagePickerCell(const QString& name, QWidget* parent = nullptr);

    std::optional<Language> language;
    LanguagePickerCellDelegate* delegate = nullptr; // outlives this

    platform::SwitchRow& toggle() { return *m_toggle; }

private:
    void didToggle();

    platform::SwitchRow* m_toggle;
};

} // namespace quillet
