#pragma once

#include "Quillet/core/Language.h"

#include <QtWidgets/QCheckBox>

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

    QCheckBox& toggle() { return *m_toggle; }

private:
    void didToggle();

    QCheckBox* m_toggle;
};

} // namespace quillet
