#pragma once

#include "platform/screens/controllers/ViewController.h"

#include <functional>
#include <memory>
#include <vector>

namespace platform {

// One presentation: covers its window, carries the presented controller and keeps mouse, focus and shortcuts
// from what lies behind. Escape, and a press beside the controller, cancel it. A child of the window, deleted
// after it is dismissed; main thread.
class PresentationContainer : public QWidget {
    Q_OBJECT

public:
    using Completion = std::function<void()>;

    static void present(ViewController& presenter, std::unique_ptr<ViewController> controller,
                        Animated animated, Completion completion);

    // Those of a window that are not on their way out, from the bottom up.
    static std::vector<PresentationContainer*> in(const QWidget& window);
    // The one that `widget` lies in, or is; null where it is not presented.
    static PresentationContainer* around(const QWidget& widget);

    ViewController* presenter() const { return m_presenter; }

    ViewController* controller() const { return m_controller; }

    // Takes this away with all that lies above.
    void dismissFromHere(Animated animated, Completion completion);

    ~PresentationContainer() override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    enum class Phase { Presenting, Up, Dismissing, Gone };

    PresentationContainer(ViewController& presenter, std::unique_ptr<ViewController> controller);

    void start(Animated animated, Completion completion);
    void presenterGoesAway();
    void controllerGoesAway();
    void dismiss(Animated animated, Completion completion);
    TransitionContext context(Animated animated, void (PresentationContainer::*complete)());
    void didPresent();
    void didDismiss();
    void layOut();
    void keepFocus(QWidget* now);
    void giveFocusBack();
    void silenceShortcutsBehind();
    bool isTopmost() const;

    ViewController* m_presenter;  // null once it is gone
    ViewController* m_controller; // likewise
    std::shared_ptr<ModalTransition> m_transition;
    std::unique_ptr<AppearanceTracker::Hold> m_hold;
    Phase m_phase = Phase::Presenting;
    Completion m_presented;
    std::vector<Completion> m_dismissed;
    QPointer<QWidget> m_returnFocus;
    std::vector<QPointer<QObject>> m_silenced; // shortcuts behind, to be given back
};

} // namespace platform
