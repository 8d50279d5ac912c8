#include "platform/screens/list/DisclosureAnimation.h"

#include "platform/screens/appearance/Motion.h"

#include <QtCore/QEasingCurve>

#include <algorithm>

namespace platform {

namespace {

constexpr int runDuration = 250; // milliseconds

double endOf(SlideWay way) {
    return way == SlideWay::Opening ? 1 : 0;
}

} // namespace

DisclosureAnimation::DisclosureAnimation(Step step)
    : m_step(std::move(step)) {}

void DisclosureAnimation::slide(const QModelIndex& index, SlideWay way, int pixels) {
    const auto running = std::ranges::find(m_runs, QPersistentModelIndex(index), &Run::index);
    if (pixels <= 0 || reducesMotion()) {
        if (running != m_runs.end()) m_runs.erase(running);
        m_step(index, way, endOf(way), pixels);
        return;
    }
    const double from = running != m_runs.end() ? running->part : 1 - endOf(way);
    if (running != m_runs.end()) {
        pixels = running->pixels;
        m_runs.erase(running);
    }
    if (state() != Running) start();
    m_runs.push_back({index, way, pixels, currentTime(), from, from});
    m_step(index, way, from, pixels);
}

void DisclosureAnimation::forgetAll() {
    m_runs.clear();
    stop();
}

void DisclosureAnimation::updateCurrentTime(int milliseconds) {
    const QEasingCurve ease(QEasingCurve::OutCubic);
    auto runs = std::exchange(m_runs, {}); // a step may start another one
    for (auto& run : runs) {
        if (!run.index.isValid()) continue;
        const double time = std::min(1.0, (milliseconds - run.start) / double(runDuration));
        run.part = run.from + (endOf(run.way) - run.from) * ease.valueForProgress(time);
        m_step(run.index, run.way, time < 1 ? run.part : endOf(run.way), run.pixels);
        if (time < 1) m_runs.push_back(run);
    }
    if (m_runs.empty() && milliseconds > 0) stop();
}

} // namespace platform
