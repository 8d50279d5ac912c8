#pragma once

#include "Quillet/screens/settings/LegacyRows.h"
#include "platform/screens/controllers/ViewController.h"

class QPushButton;
class QVBoxLayout;

namespace platform {
class GroupedForm;
class ListView;
} // namespace platform

namespace quillet {

// Lists what still lies in the older cloud layout, and brings it over at a press. Main thread.
class LegacyView : public platform::ViewController {
    Q_OBJECT

public:
    explicit LegacyView(std::unique_ptr<LegacyModel> model, QWidget* parent = nullptr);

protected:
    void viewDidLayoutSubviews() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addMigration();
    void showMigrated(bool isMigrated);
    void fitHead();
    void alignHead();

    std::unique_ptr<LegacyModel> m_model;
    QVBoxLayout* m_headPlace;
    platform::GroupedForm* m_head;
    QPushButton* m_button;
    LegacyRows m_rows;
    platform::ListView* m_list;
    platform::Subscription m_subscription;
};

} // namespace quillet
