#include "app/TerminationSignals.h"

#include "platform/foundation/FatalError.h"

#include <QtCore/QSocketNotifier>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace quillet {

namespace {

constexpr std::array signals{SIGTERM, SIGINT, SIGHUP};

// What a signal handler may touch: a pipe that the main loop listens to.
std::array<int, 2> signalPipe{-1, -1};

void writeToPipe(int /*signal*/) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(signalPipe[1], &byte, 1);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> handler) {
    if (pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        platform::fatalError("No pipe for the termination signals");
    auto* notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [handler = std::move(handler)] {
        char byte = 0;
        while (read(signalPipe[0], &byte, 1) == 1) {
        }
        handler();
    });
    for (const int signal : signals)
        std::signal(signal, writeToPipe);
}

TerminationSignals::~TerminationSignals() {
    for (const int signal : signals)
        std::signal(signal, SIG_DFL);
    for (int& end : signalPipe)
        close(end);
}

} // namespace quillet
