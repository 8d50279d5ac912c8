#pragma once

#include <QtCore/QObject>

#include <functional>

namespace quillet {

// Turns the signals by which a session or a person ends the program (SIGTERM, SIGINT, SIGHUP) into a call on
// the main thread. One at a time; main thread.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    // `handler` is called in a turn of the main loop, soon after the signal.
    explicit TerminationSignals(std::function<void()> handler);
    ~TerminationSignals() override;
};

} // namespace quillet
