#pragma once

#include "Halcyonix/GrayView.h"
#include "Halcyonix/SpringAnimator.h"

#include <QtCore/QPointer>

#include <memory>

namespace halcyonix {

// Puts a presented controller on a card with round corners that springs up over a grayed window, and drops it
// again. A tap on the gray asks the controller to go. The card may turn back while it is still moving. One
// object a presentation; main thread.
class SpringTransition : public platform::ModalTransition {
public:
    void present(const platform::TransitionContext& context) override;
    void dismiss(const platform::TransitionContext& context) override;
    void layOut(QWidget& container, platform::ViewController& controller) override;

    // What moves the card, or moved it last; null before it is presented.
    SpringAnimator* animator() const { return m_animator.get(); }

    // Null before it is presented.
    GrayView* grayView() const { return m_grayView; }

protected:
    virtual std::unique_ptr<SpringAnimator> makeAnimator(AnimationType type) const = 0;

private:
    void run(const platform::TransitionContext& context, SpringAnimator::State to);

    std::unique_ptr<SpringAnimator> m_animator;
    QPointer<GrayView> m_grayView;
    SpringAnimator::State m_state{};
};

} // namespace halcyonix
