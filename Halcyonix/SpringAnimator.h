#pragma once

#include "Halcyonix/AnimationType.h"
#include "platform/screens/controllers/Presentation.h"

#include <QtCore/QRect>
#include <QtCore/QVariantAnimation>

#include <functional>

namespace halcyonix {

// One movement of a presented card: how far below its rest the card is, and how much gray lies behind it. The
// kinds of cards differ in where they rest, in how far and in how long they go. Main thread.
class SpringAnimator : public QObject {
    Q_OBJECT

public:
    struct State {
        qreal offset; // points below the rest
        qreal alpha;  // of the gray
    };

    static constexpr State restState{.offset = 0, .alpha = 0.5};

    explicit SpringAnimator(AnimationType type)
        : animationType(type) {}

    const AnimationType animationType;
    platform::ViewController* fromViewController = nullptr; // leaves, or is covered
    platform::ViewController* toViewController = nullptr;   // comes, or is uncovered
    QObject* const dragGestureRecognizer = nullptr;         // dragging does nothing

    // Where the presented card rests in a container of that size.
    virtual QRect restFrame(QSize container, const platform::ViewController& presented) const = 0;
    // How far below its rest the card is when it is out: where it comes from, or goes to.
    virtual qreal outOffset(QSize container) const = 0;

    virtual int milliseconds() const { return 1000; }

    // Tells `place` each state on the way, the last included, then runs `complete`.
    void run(State from, State to, platform::Animated animated, std::function<void(State)> place,
             std::function<void()> complete);

    // Runs while the card moves.
    QVariantAnimation& propertyAnimator() { return m_propertyAnimator; }

private:
    QVariantAnimation m_propertyAnimator;
};

} // namespace halcyonix
