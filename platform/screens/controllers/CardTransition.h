#pragma once

#include "platform/screens/controllers/CardBackdrop.h"
#include "platform/screens/controllers/CardPlacement.h"
#include "platform/screens/controllers/Presentation.h"

#include <functional>

namespace platform {

// Brings a controller in on a card that its placement describes, from below or by fading. Main thread.
class CardTransition : public ModalTransition {
public:
    using Placement = std::function<CardPlacement(const QRect& window, const ViewController& controller)>;

    explicit CardTransition(Placement placement)
        : m_placementOf(std::move(placement)) {}

    void present(const TransitionContext& context) override;
    void dismiss(const TransitionContext& context) override;
    void layOut(QWidget& container, ViewController& controller) override;

private:
    void move(const TransitionContext& context, qreal to);
    void apply();
    void fade(qreal opacity);

    Placement m_placementOf;
    CardPlacement m_placement;
    QPointer<CardBackdrop> m_backdrop;
    QPointer<ViewController> m_controller;
    qreal m_progress = 0;
};

} // namespace platform
