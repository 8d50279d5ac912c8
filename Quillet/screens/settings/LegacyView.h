#pragma once

#include "Quillet/screens/settings/LegacyModel.h"
#include "platform/screens/controllers/ViewController.h"

#include <QtGui/QStandardItemModel>

class QPushButton;

namespace quillet {

// The snippets of the older layout in the cloud, and a button that brings them over. Main thread.
class LegacyView : public platform::ViewController {
    Q_OBJECT

public:
    explicit LegacyView(QWidget* parent = nullptr);

protected:
    void viewDidLoad() override;

private:
    void showSnippets(const LegacyModel::Snippets& snippets);

    LegacyModel m_model;
    QStandardItemModel m_rows;
    std::vector<platform::Subscription> m_subscriptions;
};

} // namespace quillet
