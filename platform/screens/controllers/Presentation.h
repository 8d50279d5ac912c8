#pragma once

#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtCore/Qt>

#include <functional>

class QWidget;

namespace platform {

class ViewController;

enum class Animated { No, Yes };

enum class ModalPresentationStyle {
    Automatic,          // a card in the middle of a wide window, a sheet from below in a narrow one
    Popover,            // beside its anchor with an arrow in a wide window; as Automatic in a narrow one
    OverCurrentContext, // covers the whole window, which shines through where the controller paints nothing
    Custom,             // placed and moved by the controller's ModalTransition
};

// Where a popover points to.
struct PopoverAnchor {
    QPointer<QWidget> view;
    QRect rect; // in coordinates of `view`
    Qt::Edge arrow =
        Qt::BottomEdge; // the edge of the popover that its arrow is on: at the bottom it points down
};

// What a transition works with. All of it outlives the transition.
struct TransitionContext {
    QWidget* container = nullptr; // covers the window, below `controller`; the transition may add to it
    ViewController* controller = nullptr; // presented or dismissed, a child of the container
    Animated animated = Animated::Yes;    // No also where the user wants little motion
    std::function<void()> complete;       // to be called once, when everything has come to rest
};

// Moves one presented controller in and out. One object a presentation, kept until it is dismissed. Main
// thread.
//
// layOut comes first, then present. dismiss may come while present still moves: it goes on from there, and
// present need not complete any more.
class ModalTransition {
public:
    virtual ~ModalTransition() = default;
    virtual void present(const TransitionContext& context) = 0;
    virtual void dismiss(const TransitionContext& context) = 0;
    // The window has another size: puts everything where it rests.
    virtual void layOut(QWidget& container, ViewController& controller) = 0;
};

} // namespace platform
