#pragma once

#include "platform/cloud/AccountResult.h"

#include <functional>
#include <memory>

namespace account {

// Connects to the account with the password, or with the stored one where that is empty, and says how that
// went. Blocks up to a deadline of its own; called on a pool thread.
using ConnectionTester = std::function<platform::CloudResult<void>(const platform::CloudAccount& account,
                                                                   const QString& password)>;

// Runs one test at a time beside the main thread. Main thread; the result of a test that was given up, or
// whose owner is gone, is dropped.
class ConnectionTest {
public:
    using Completion = std::function<void(const platform::CloudResult<void>&)>;

    explicit ConnectionTest(ConnectionTester tester);

    // Gives up the test before.
    void start(const platform::CloudAccount& account, const QString& password, Completion completion);
    void giveUp();

    bool isRunning() const { return m_running != nullptr; }

private:
    ConnectionTester m_tester;
    std::shared_ptr<Completion> m_running; // of the test that counts
};

} // namespace account
