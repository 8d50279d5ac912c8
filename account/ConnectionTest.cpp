#include "account/ConnectionTest.h"

#include "platform/foundation/MainQueue.h"

#include <utility>

namespace account {

using platform::CloudAccount;

ConnectionTest::ConnectionTest(ConnectionTester tester)
    : m_tester(std::move(tester)) {}

void ConnectionTest::start(const CloudAccount& account, const QString& password, Completion completion) {
    m_running = std::make_shared<Completion>();
    *m_running = [this, completion = std::move(completion)](const auto& result) {
        giveUp(); // it is done, and the completion may start another one
        completion(result);
    };
    platform::dispatchToBackground(
        [tester = m_tester, account, password, running = std::weak_ptr(m_running)] {
            auto result = tester(account, password);
            platform::dispatchToMain([running, result = std::move(result)] {
                // Its owner may let go of the completion while that runs.
                if (const auto finish = running.lock()) (*finish)(result);
            });
        });
}

void ConnectionTest::giveUp() {
    m_running.reset();
}

} // namespace account
