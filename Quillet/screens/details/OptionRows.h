#pragma once

#include <QtCore/QStringListModel>

#include <optional>

namespace quillet {

// Options for a platform::ListView, the selected one with a check mark. Main thread.
class OptionRows : public QStringListModel {
    Q_OBJECT

public:
    OptionRows(const QStringList& options, std::optional<QString> selectedOption);

    const std::optional<QString>& selectedOption() const { return m_selectedOption; }

    void setSelectedOption(const std::optional<QString>& option);

    QVariant data(const QModelIndex& index, int role) const override;

private:
    std::optional<QString> m_selectedOption;
};

} // namespace quillet
