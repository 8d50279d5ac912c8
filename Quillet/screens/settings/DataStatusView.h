#pragma once

#include "Quillet/cloud/CoreDataMigrator.h"
#include "Quillet/screens/settings/DataStatsModel.h"
#include "platform/screens/controllers/ViewController.h"

#include <QtCore/QLocale>

class QVBoxLayout;

namespace platform {
class GroupedForm;
}

namespace quillet {

class ValueRow;

// How the library's data stands, live, and the way to what was left behind. To be pushed onto a navigation
// controller. Main thread.
class DataStatusView : public platform::ViewController {
    Q_OBJECT

public:
    // Both outlive this.
    DataStatusView(CoreDataMigrator& coreDataMigrator, CloudKitService& cloudKitService,
                   QWidget* parent = nullptr);

protected:
    // The settings tell nobody of their changes.
    void viewWillAppear(platform::Animated animated) override;

private:
    void addAbout(platform::GroupedForm& form);
    void addStats(platform::GroupedForm& form);
    void addMissingData(platform::GroupedForm& form);
    void observe();
    void showMigration();
    void showLegacy();

    CoreDataMigrator* m_coreDataMigrator;
    CloudKitService* m_cloudKitService;
    DataStatsModel m_viewModel;
    QLocale m_formatter;
    ValueRow* m_storeVersion; // once migrated
    ValueRow* m_started;      // until then
    ValueRow* m_complete;
    ValueRow* m_recordCount;
    ValueRow* m_snippets;
    ValueRow* m_tags;
    ValueRow* m_folders;
    std::vector<platform::Subscription> m_subscriptions;
};

} // namespace quillet
