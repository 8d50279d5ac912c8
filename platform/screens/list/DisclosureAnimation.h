#pragma once

#include "platform/screens/list/VisibleRows.h"

#include <QtCore/QAbstractAnimation>

namespace platform {

// Slides the rows below rows open and shut. A way that is turned around goes back from where it is.
class DisclosureAnimation : public QAbstractAnimation {
public:
    // Told at each step; the last one of a way has the part 1 or 0.
    using Step = std::function<void(const QModelIndex&, SlideWay, double part, int pixels)>;

    explicit DisclosureAnimation(Step step);

    // Over so many pixels; at once where there are none, or where motion is not wanted.
    void slide(const QModelIndex& index, SlideWay way, int pixels);
    // Stops without a further step.
    void forgetAll();

    int duration() const override { return -1; } // ends with its last run

protected:
    void updateCurrentTime(int milliseconds) override;

private:
    struct Run {
        QPersistentModelIndex index;
        SlideWay way = SlideWay::Opening;
        int pixels = 0;
        int start = 0; // milliseconds of the animation's time
        double from = 0;
        double part = 0; // as last told
    };

    Step m_step;
    std::vector<Run> m_runs;
};

} // namespace platform
