#pragma once

#include "platform/highlightr/ChildProcess.h"
#include "platform/highlightr/HighlightedCode.h"

#include <QtCore/QString>

#include <chrono>
#include <memory>
#include <mutex>
#include <optional>

namespace platform {

struct HighlightDeadlines {
    std::chrono::milliseconds start{10'000};
    std::chrono::milliseconds request{2'000};
};

// The highlighter's helper process. Hostile text can drive the highlighter's regular expressions into endless
// work that no engine can interrupt, so it works in a process of its own, which is killed at a deadline and
// started anew at the next request. What it answers is checked before it is believed.
//
// Any thread but the main one: a request blocks. One request at a time; others wait.
class HighlightProcess {
public:
    // The helper that all of the program shares, installed beside it.
    static HighlightProcess& shared();

    explicit HighlightProcess(QString executable, HighlightDeadlines deadlines = {});

    // Nothing for a text above the cap, at the deadline, and where the helper fails in any way. No language
    // asks for automatic detection on the first `sampleSize` code units.
    std::optional<HighlightedCode> highlight(const QString& code, const std::optional<QString>& language,
                                             quint32 sampleSize);

    // Of the running helper; 0 where none runs.
    pid_t pid() const;

private:
    std::expected<QByteArray, highlight::ChildProcess::Fault> ask(const QByteArray& request);
    bool ensureRunning();

    const QString m_executable;
    const HighlightDeadlines m_deadlines;
    mutable std::mutex m_mutex; // guards what follows
    std::unique_ptr<highlight::ChildProcess> m_child;
};

} // namespace platform
