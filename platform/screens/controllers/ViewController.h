#pragma once

#include "platform/screens/controllers/AppearanceTracker.h"
#include "platform/screens/controllers/NavigationItem.h"
#include "platform/screens/controllers/Presentation.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>

namespace platform {

class NavigationController;
class SplitViewController;

// A screen, or a part of one: a widget that is its own view and is told when it comes and goes.
//
// The order over a life is viewDidLoad, once; then each time it comes up viewWillAppear, viewDidAppear, and
// each time it goes viewWillDisappear, viewDidDisappear. It comes up when it becomes visible in its window,
// whichever ancestor was shown; a window that is minimised or covered stays up. "Did" is told when what moves
// has come to rest, in a later turn of the main loop at the earliest; a coming that turns into a going before
// that has no "did", and the other way round. Main thread.
class ViewController : public QWidget {
    Q_OBJECT

public:
    explicit ViewController(QWidget* parent = nullptr);
    ~ViewController() override;

    // What stands in the bar of a navigation controller, which also names the screen to assistive tools.
    NavigationItem& navigationItem() { return m_navigationItem; }

    QString title() const { return m_navigationItem.title(); }

    void setTitle(const QString& title);

    // Runs viewDidLoad if it has not run yet. Becoming visible does so, too, for those around it first; and
    // for all inside a window, hidden or not, when the window first comes up.
    void loadViewIfNeeded();

    bool isViewLoaded() const { return m_isViewLoaded; }

    // In points, for a presentation that leaves the size to its content. Invalid without a preference.
    QSize preferredContentSize() const { return m_preferredContentSize; }

    void setPreferredContentSize(QSize size);

    // The nearest one around this, or null. What presents this is not around it.
    ViewController* parentViewController() const;
    NavigationController* navigationController() const;
    SplitViewController* splitViewController() const;

    // How this is presented; to be set before.
    ModalPresentationStyle modalPresentationStyle = ModalPresentationStyle::Automatic;
    PopoverAnchor popoverAnchor;                      // for Popover
    std::shared_ptr<ModalTransition> modalTransition; // for Custom

    // Shows `controller` over the window of this, above whatever is presented there already. The window's
    // presentation owns it and deletes it some time after it is dismissed. `completion` runs when it has come
    // to rest.
    void present(std::unique_ptr<ViewController> controller, Animated animated = Animated::Yes,
                 std::function<void()> completion = {});

    // Takes away what this presents, with all that lies above it; where this presents nothing, this itself or
    // the presented controller around it. `completion` runs when it is gone; also where there was nothing.
    void dismiss(Animated animated = Animated::Yes, std::function<void()> completion = {});

    // What this, or a controller around it, presents; null if nothing. A presentation that is on its way out
    // does not count any more.
    ViewController* presentedViewController() const;
    // Who presented this or the controller around it; null if nobody.
    ViewController* presentingViewController() const;

    // Escape was pressed, or the dimmed surrounding. Dismisses; a controller that must not lose what is typed
    // may ask first.
    virtual void cancelPresentation();

Q_SIGNALS:
    void preferredContentSizeChanged();
    // It is being destroyed; what derives from ViewController is gone already.
    void goingAway();

protected:
    virtual void viewDidLoad() {}

    virtual void viewWillAppear(Animated /*animated*/) {}

    virtual void viewDidAppear(Animated /*animated*/) {}

    virtual void viewWillDisappear(Animated /*animated*/) {}

    virtual void viewDidDisappear(Animated /*animated*/) {}

    // After each layout of this view.
    virtual void viewDidLayoutSubviews() {}

    bool event(QEvent* event) override;

private:
    friend class AppearanceTracker;

    NavigationItem m_navigationItem;
    QSize m_preferredContentSize;
    bool m_isViewLoaded = false;
    AppearanceTracker::State m_appearance = AppearanceTracker::State::Gone;
    Animated m_appearsAnimated = Animated::No; // or disappears
    int m_holds = 0;                           // those who move it right now
    int m_animatedHolds = 0;                   // of them, those who do so over time
};

} // namespace platform
