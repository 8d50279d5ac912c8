#include "platform/highlightr/ChildProcess.h"

#include <QtCore/QFile>
#include <QtCore/QtEndian>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform::highlight {

namespace {

struct Pipe {
    int readEnd = -1;
    int writeEnd = -1;

    bool open() {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0) return false;
        readEnd = ends[0];
        writeEnd = ends[1];
        return true;
    }

    static void closeEnd(int& end) {
        if (end >= 0) close(end);
        end = -1;
    }

    ~Pipe() {
        closeEnd(readEnd);
        closeEnd(writeEnd);
    }
};

// A write to a child that has died must be an error, not the end of this program.
void ignoreBrokenPipes() {
    static const auto once = std::signal(SIGPIPE, SIG_IGN);
    (void)once;
}

pid_t spawn(const QString& executable, int input, int output) {
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_init(&actions);
    posix_spawnattr_init(&attributes);
    posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    QByteArray path = QFile::encodeName(executable);
    std::array<char*, 2> arguments{path.data(), nullptr};
    std::array<char*, 1> environment{nullptr};
    pid_t pid = -1;
    const int error =
        posix_spawn(&pid, path.constData(), &actions, &attributes, arguments.data(), environment.data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? pid : -1;
}

// Waits until the descriptor is ready for `events` or its other end is gone; false at the deadline.
bool waitFor(int descriptor, short events, const QDeadlineTimer& deadline) {
    for (;;) {
        pollfd entry{descriptor, events, 0};
        const int ready = poll(&entry, 1, static_cast<int>(deadline.remainingTime()));
        if (ready > 0) return true;
        if (ready == 0 || errno != EINTR) return false;
    }
}

} // namespace

std::expected<std::unique_ptr<ChildProcess>, ChildProcess::Fault>
ChildProcess::start(const QString& executable) {
    ignoreBrokenPipes();
    Pipe in;
    Pipe out;
    if (!in.open() || !out.open()) return std::unexpected(Fault::CannotStart);
    const pid_t pid = spawn(executable, in.readEnd, out.writeEnd);
    if (pid < 0) return std::unexpected(Fault::CannotStart);
    fcntl(in.writeEnd, F_SETFL, O_NONBLOCK);
    fcntl(out.readEnd, F_SETFL, O_NONBLOCK);
    return std::unique_ptr<ChildProcess>(
        new ChildProcess(pid, std::exchange(in.writeEnd, -1), std::exchange(out.readEnd, -1)));
}

ChildProcess::ChildProcess(pid_t pid, int toChild, int fromChild)
    : m_pid(pid)
    , m_toChild(toChild)
    , m_fromChild(fromChild) {}

ChildProcess::~ChildProcess() {
    kill(m_pid, SIGKILL);
    while (waitpid(m_pid, nullptr, 0) < 0 && errno == EINTR) {
    }
    close(m_toChild);
    close(m_fromChild);
}

std::expected<void, ChildProcess::Fault> ChildProcess::writeFrame(const QByteArray& payload,
                                                                  QDeadlineTimer deadline) {
    std::array<char, 4> length{};
    qToLittleEndian(static_cast<quint32>(payload.size()), length.data());
    const QByteArray frame = QByteArray(length.data(), length.size()) + payload;
    for (qsizetype at = 0; at < frame.size();) {
        const ssize_t written =
            write(m_toChild, frame.constData() + at, static_cast<std::size_t>(frame.size() - at));
        if (written > 0) {
            at += written;
        } else if (errno == EAGAIN) {
            if (!waitFor(m_toChild, POLLOUT, deadline)) return std::unexpected(Fault::TimedOut);
        } else if (errno != EINTR) {
            return std::unexpected(Fault::Broken);
        }
    }
    return {};
}

std::expected<QByteArray, ChildProcess::Fault> ChildProcess::readFrame(qsizetype longest,
                                                                       QDeadlineTimer deadline) {
    const auto length = readExactly(4, deadline);
    if (!length) return length;
    const auto size = static_cast<qsizetype>(qFromLittleEndian<quint32>(length->constData()));
    if (size > longest) return std::unexpected(Fault::Broken);
    return readExactly(size, deadline);
}

std::expected<QByteArray, ChildProcess::Fault> ChildProcess::readExactly(qsizetype size,
                                                                         QDeadlineTimer deadline) {
    QByteArray bytes(size, Qt::Uninitialized);
    for (qsizetype at = 0; at < size;) {
        const ssize_t got = read(m_fromChild, bytes.data() + at, static_cast<std::size_t>(size - at));
        if (got > 0) {
            at += got;
        } else if (got < 0 && errno == EAGAIN) {
            if (!waitFor(m_fromChild, POLLIN, deadline)) return std::unexpected(Fault::TimedOut);
        } else if (got == 0 || errno != EINTR) {
            return std::unexpected(Fault::Broken);
        }
    }
    return bytes;
}

} // namespace platform::highlight
