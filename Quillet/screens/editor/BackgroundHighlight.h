#pragma once

#include "platform/foundation/AttributedString.h"
#include "platform/foundation/Timer.h"
#include "platform/highlightr/Highlightr.h"

#include <functional>
#include <memory>

namespace quillet {

// Finds the colours of a code off the main thread, the language included. The latest code counts: what an
// earlier one was started for does not arrive any more. Main thread.
class BackgroundHighlight {
public:
    // Runs in a later turn of the main loop: with the colours, and once before without any where they take
    // longer than a frame.
    using Arrive = std::function<void(const platform::AttributedString&)>;

    explicit BackgroundHighlight(std::shared_ptr<platform::Highlightr> highlightr);
    ~BackgroundHighlight();

    void start(const QString& code, Arrive arrive);
    // Once more for the same code.
    void repeat();
    void cancel();

private:
    struct Job;

    void arrivePlain();
    static void finish(Job& job, const platform::AttributedString& result);

    std::shared_ptr<platform::Highlightr> m_highlightr;
    std::shared_ptr<Job> m_job; // the latest, if any
    platform::Timer m_patience;
};

} // namespace quillet
