#pragma once

#include "Quillet/cloud/CoreDataMigrator.h"
#include "Quillet/screens/settings/DataStatsModel.h"
#include "platform/screens/controllers/ViewController.h"

#include <vector>

namespace quillet {

class ValueRow;

// How the store stands, live; and the way to the data of the older layout. Main thread.
class DataStatusView : public platform::ViewController {
    Q_OBJECT

public:
    explicit DataStatusView(QWidget* parent = nullptr);

protected:
    void viewDidLoad() override;

private:
    void refresh();
    void showLegacy();

    CoreDataMigrator* m_coreDataMigrator = &CoreDataMigrator::shared();
    DataStatsModel m_viewModel;
    ValueRow* m_version = nullptr; // these once the view is loaded
    ValueRow* m_started = nullptr;
    ValueRow* m_complete = nullptr;
    ValueRow* m_legacyCount = nullptr;
    ValueRow* m_snippets = nullptr;
    ValueRow* m_tags = nullptr;
    ValueRow* m_folders = nullptr;
    std::vector<platform::Subscription> m_subscriptions;
};

} // namespace quillet
