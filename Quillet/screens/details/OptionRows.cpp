#include "Quillet/screens/details/OptionRows.h"

#include "platform/screens/list/ListView.h"

namespace quillet {

using platform::ListView;

OptionRows::OptionRows(const QStringList& options, std::optional<QString> selectedOption)
    : QStringListModel(options)
    , m_selectedOption(std::move(selectedOption)) {}

void OptionRows::setSelectedOption(const std::optional<QString>& option) {
    m_selectedOption = option;
    if (rowCount() > 0) Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

QVariant OptionRows::data(const QModelIndex& index, int role) const {
    if (role == ListView::KeyRole) return QStringListModel::data(index, Qt::DisplayRole);
    if (role != ListView::AccessoryRole) return QStringListModel::data(index, role);
    const bool isSelected = index.data().toString() == m_selectedOption;
    return static_cast<int>(isSelected ? ListView::Accessory::Checkmark : ListView::Accessory::None);
}

} // namespace quillet
