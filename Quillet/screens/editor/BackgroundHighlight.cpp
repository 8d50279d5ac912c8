#include "Quillet/screens/editor/BackgroundHighlight.h"

#include "platform/foundation/MainQueue.h"

#include <atomic>

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto frame = 16ms;

} // namespace

struct BackgroundHighlight::Job {
    QString code;
    Arrive arrive;
    bool hasArrived = false;
    std::atomic_bool isStale = false; // any thread
};

BackgroundHighlight::BackgroundHighlight(std::shared_ptr<platform::Highlightr> highlightr)
    : m_highlightr(std::move(highlightr))
    , m_patience(platform::Timer::Kind::OneShot, frame, [this] { arrivePlain(); }) {}

BackgroundHighlight::~BackgroundHighlight() {
    cancel();
}

void BackgroundHighlight::cancel() {
    m_patience.stop();
    if (m_job) m_job->isStale = true;
    m_job.reset();
}

void BackgroundHighlight::start(const QString& code, Arrive arrive) {
    cancel();
    m_job = std::make_shared<Job>();
    m_job->code = code;
    m_job->arrive = std::move(arrive);
    m_patience.start();
    repeat();
}

void BackgroundHighlight::repeat() {
    if (!m_job) return;
    platform::dispatchToBackground([job = m_job, highlightr = m_highlightr] {
        if (job->isStale) return; // of many that were skimmed over only the last one is worth the work
        auto result = highlightr->highlight(job->code, std::nullopt, platform::Highlightr::Rendering::Fast);
        platform::dispatchToMain([job, result = std::move(result)] { finish(*job, result); });
    });
}

void BackgroundHighlight::arrivePlain() {
    if (m_job && !m_job->hasArrived) finish(*m_job, {m_job->code, {}});
}

void BackgroundHighlight::finish(Job& job, const platform::AttributedString& result) {
    if (job.isStale) return;
    job.hasArrived = true;
    const Arrive arrive = job.arrive; // it may start the next job
    arrive(result);
}

} // namespace quillet
