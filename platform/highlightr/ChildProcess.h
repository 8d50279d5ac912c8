#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QString>

#include <expected>
#include <memory>
#include <sys/types.h>

namespace platform::highlight {

// A child process with pipes at its standard input and output, and frames on them. Killed and reaped when
// this goes. Every wait has a deadline. One thread at a time.
class ChildProcess {
public:
    enum class Fault { CannotStart, TimedOut, Broken };

    // Starts the executable without a shell and with an empty environment.
    static std::expected<std::unique_ptr<ChildProcess>, Fault> start(const QString& executable);

    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t pid() const { return m_pid; }

    std::expected<void, Fault> writeFrame(const QByteArray& payload, QDeadlineTimer deadline);
    // A frame that claims to be longer than `longest` is Broken.
    std::expected<QByteArray, Fault> readFrame(qsizetype longest, QDeadlineTimer deadline);

private:
    ChildProcess(pid_t pid, int toChild, int fromChild);

    std::expected<QByteArray, Fault> readExactly(qsizetype size, QDeadlineTimer deadline);

    pid_t m_pid;
    int m_toChild;   // owned, not blocking
    int m_fromChild; // owned, not blocking
};

} // namespace platform::highlight
