#pragma once

#include <QtCore/QObject>

#include <functional>
#include <vector>

class QProcess;

namespace platform {

// Asks the desktop whether it knows a program for `mailto:`. Where there is no `xdg-mime` to be asked, as in
// a sandbox, whoever has an `xdg-email` is taken to know one. One question at a time; main thread.
class MailHandlerQuery : public QObject {
    Q_OBJECT

public:
    using Answer = std::function<void(bool)>;

    // Of the application, which owns it.
    static MailHandlerQuery& shared();

    explicit MailHandlerQuery(QObject* parent);
    ~MailHandlerQuery() override;

    // True before the first answer.
    bool lastAnswer() const { return m_lastAnswer; }

    // `answer` is called in a later turn of the main loop, at the latest after some seconds.
    void ask(Answer answer = {});

private:
    void start();
    void finish(bool isKnown);

    QProcess* m_process = nullptr; // while it runs
    bool m_isAsking = false;
    bool m_lastAnswer = true;
    std::vector<Answer> m_waiting;
};

} // namespace platform
