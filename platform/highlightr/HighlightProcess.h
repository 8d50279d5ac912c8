#pragma once

#include "platform/highlightr/ChildProcess.h"
#include "platform/highlightr/HighlightCache.h"
#include "platform/highlightr/HighlightedCode.h"
#include "platform/highlightr/PriorityMutex.h"

#include <QtCore/QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace platform {

struct HighlightDeadlines {
    std::chrono::milliseconds start{10'000};
    std::chrono::milliseconds request{2'000};
    std::chrono::milliseconds perMillion{4'000}; // more for a request of so many code units
};

// The highlighter's helper process. Hostile text can drive the highlighter's regular expressions into endless
// work that no engine can interrupt, so it works in a process of its own, which is killed at a deadline and
// started anew at the next request. What it answers is checked before it is believed.
//
// Any thread but the main one: a request blocks. One request at a time; others wait, and those for a
// detection let all others pass. The last few answers are known without asking again.
class HighlightProcess {
public:
    // The helper that all of the program shares, installed beside it.
    static HighlightProcess& shared();

    explicit HighlightProcess(QString executable, HighlightDeadlines deadlines = {});

    // Whether the answer is still of use, asked when a request's turn has come. Called on the request's
    // thread.
    using IsWanted = std::function<bool()>;

    // Nothing for a text above the cap, at the deadline, where the helper fails in any way, and for a request
    // that is not wanted any more. No language asks for automatic detection on the first `sampleSize` code
    // units.
    std::shared_ptr<const HighlightedCode> highlight(const QString& code,
                                                     const std::optional<QString>& language,
                                                     quint32 sampleSize, const IsWanted& isWanted = {});

    // Of the running helper; 0 where none runs.
    pid_t pid() const;

private:
    std::shared_ptr<const HighlightedCode> answer(const highlight::Question& question);
    std::expected<QByteArray, highlight::ChildProcess::Fault> ask(const highlight::Question& question);
    bool ensureRunning();

    const QString m_executable;
    const HighlightDeadlines m_deadlines;
    highlight::HighlightCache m_known;
    mutable highlight::PriorityMutex m_mutex; // guards what follows
    std::unique_ptr<highlight::ChildProcess> m_child;
};

} // namespace platform
