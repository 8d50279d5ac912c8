#pragma once

#include "platform/screens/controllers/ViewController.h"

namespace platform {

// Two columns side by side where the window has room, one of them where it has not. F6 and Shift+F6 move the
// focus between the columns. Owns both; main thread.
class SplitViewController : public ViewController {
    Q_OBJECT

public:
    enum class Column { Primary, Secondary };
    enum class DisplayMode { Automatic, OneBesideSecondary };

    SplitViewController(std::unique_ptr<ViewController> primary, std::unique_ptr<ViewController> secondary,
                        QWidget* parent = nullptr);

    ViewController* viewController(Column column) const;
    std::vector<ViewController*> children() const;

    DisplayMode preferredDisplayMode = DisplayMode::Automatic;

    // Whether there is room for one column only: narrower than 720 points.
    bool isCollapsed() const;

    // Brings the column up where it is collapsed. Beside each other both are up anyway.
    void showColumn(Column column, Animated animated = Animated::Yes);

    Column topColumn() const { return m_topColumn; }

Q_SIGNALS:
    void collapsedChanged(bool isCollapsed);

protected:
    // Asked when the columns collapse: whether the primary column stays on top and the secondary one is not
    // shown.
    virtual bool collapsesSecondaryOntoPrimary() { return false; }

private:
    Column m_topColumn = Column::Primary;
};

} // namespace platform
