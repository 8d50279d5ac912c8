#pragma once

#include "Quillet/screens/settings/LegacyModel.h"

#include <QtCore/QAbstractListModel>

namespace quillet {

// The snippets of a LegacyModel for a platform::ListView, below a heading. Main thread.
class LegacyRows : public QAbstractListModel {
    Q_OBJECT

public:
    // `model` outlives this.
    explicit LegacyRows(LegacyModel& model, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    static QVariant headingData(int role);
    static QVariant snippetData(const Snippet& snippet, int role);

    LegacyModel::Snippets m_snippets;
    platform::Subscription m_subscription;
};

} // namespace quillet
