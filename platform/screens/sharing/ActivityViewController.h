#pragma once

#include "platform/screens/controllers/ViewController.h"
#include "platform/screens/sharing/ShareItem.h"

#include <vector>

namespace platform {

class ListView;

// The desktop's ways to give an item to somebody: copy, save, mail, another program. Choosing one dismisses
// the sheet first. What goes wrong is told in an alert. To be presented as a popover. Main thread.
class ActivityViewController : public ViewController {
    Q_OBJECT

public:
    explicit ActivityViewController(ShareItem item, QWidget* parent = nullptr);

private:
    struct Activity {
        QString title;
        QString symbol;
        // On behalf of who presented the sheet.
        void (*perform)(const ShareItem& item, ViewController& over);
    };

    static std::vector<Activity> activities();

    ListView* makeList();
    // Of all rows below what is on top of them, which is so high.
    QSize preferredSize(int topHeight) const;
    void perform(std::size_t activity);

    ShareItem m_item;
    std::vector<Activity> m_activities;
};

} // namespace platform
