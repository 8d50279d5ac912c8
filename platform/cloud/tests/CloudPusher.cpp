#include "platform/cloud/tests/CloudFixture.h"

#include <QtCore/QCoreApplication>

#include <iostream>

// One device as a process of its own: `pushes` pushes of `batch` records each, which are called after the
// device. Prints "ack N" for each that the cloud has confirmed, and ends with 2 at the first that it has not.
//     cloud_pusher ACCOUNT DEVICE PUSHES BATCH
// ACCOUNT is a file, or the port of a server of this machine where the user is alice.

using namespace platform;
using platform::testing::Device;

namespace {

CloudAccount accountOf(const QString& text) {
    bool isPort = false;
    const int port = text.toInt(&isPort);
    if (!isPort) return FileAccount{text};
    return ServerAccount{QStringLiteral("127.0.0.1"), port, QStringLiteral("cloud"),
                         QStringLiteral("alice"),     {},   {}};
}

std::vector<ZoneRecord> recordsOf(const QString& device, int push, int batch) {
    std::vector<ZoneRecord> records;
    for (int i = 0; i < batch; ++i)
        records.push_back(testing::record(QStringLiteral("%1-%2-%3").arg(device).arg(push).arg(i)));
    return records;
}

// Pulls and pushes until it is there, or the cloud fails.
bool pushOn(Device& device, const std::vector<ZoneRecord>& records) {
    for (;;) {
        if (!device.pull()) return false;
        const auto result = device.push(records);
        if (!result) {
            std::cerr << result.error().message.toStdString() << '\n';
            return false;
        }
        if (result->outcome == PushOutcome::Committed) return true;
    }
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const auto store = platform::testing::openStore(accountOf(arguments.at(1)));
    Device device(*store, QStringLiteral("zone"));
    for (int push = 0; push < arguments.at(3).toInt(); ++push) {
        if (!pushOn(device, recordsOf(arguments.at(2), push, arguments.at(4).toInt()))) return 2;
        std::cout << "ack " << push << std::endl;
    }
    return 0;
}
