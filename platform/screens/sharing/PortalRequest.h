#pragma once

#include <QtCore/QObject>
#include <QtCore/QVariant>
#include <QtDBus/QDBusConnection>

#include <functional>

namespace platform {

// A question to the desktop portal that the user answers in a window of the desktop's. Lives until it is
// answered. Main thread.
class PortalRequest : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        Done,
        Ended, // by the user, or by the portal, which says so itself: the response does not tell them apart
        Unavailable, // there is no portal, or none that can do this
    };

    // `results` are the portal's, with Outcome::Done.
    using Answer = std::function<void(Outcome outcome, const QVariantMap& results)>;

    struct Call {
        QString interface; // without the prefix that all have
        QString method;
        QVariantList arguments; // but for the options, which come last
        QVariantMap options;
    };

    // Returns at once; the answer comes in a later turn of the main loop.
    static void send(QDBusConnection bus, Call call, Answer answer);

private Q_SLOTS:
    void response(uint code, const QVariantMap& results);

private:
    PortalRequest(QDBusConnection bus, Answer answer);

    void start(Call call);
    void listenAt(const QString& path);
    void finish(Outcome outcome, const QVariantMap& results = {});

    QDBusConnection m_bus;
    Answer m_answer;
    QString m_path; // of the object that tells the response
};

} // namespace platform
