#pragma once

#include "platform/screens/controllers/ViewController.h"

#include <vector>

namespace platform {

class SplitDivider;

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
    bool isCollapsed() const { return m_isCollapsed; }

    // Brings the column up where it is collapsed; a navigation controller in the secondary one then has a
    // button back to the primary one. Beside each other both are up anyway.
    void showColumn(Column column, Animated animated = Animated::Yes);

    Column topColumn() const { return m_topColumn; }

    // Of the primary column while there is room, in points, as it was last dragged or set. What does not fit
    // the window is brought into bounds when it is shown.
    int primaryWidth() const { return m_primaryWidth; }

    void setPrimaryWidth(int width);

Q_SIGNALS:
    void collapsedChanged(bool isCollapsed);
    void topColumnChanged(platform::SplitViewController::Column column);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

    // Asked when the columns collapse: whether the primary column stays on top and the secondary one is not
    // shown.
    virtual bool collapsesSecondaryOntoPrimary() { return false; }

private:
    void layOut();
    void collapseIfNeeded();
    void showColumns();
    void showWayBack();
    void focusOtherColumn();

    ViewController* m_primary;
    ViewController* m_secondary;
    QWidget* m_columns; // below what a subclass may put above them in this view's column layout
    SplitDivider* m_divider;
    int m_primaryWidth; // points, as the user last dragged it
    bool m_isCollapsed = false;
    Column m_topColumn = Column::Primary;
};

} // namespace platform
