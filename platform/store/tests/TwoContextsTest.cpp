#include "platform/store/tests/FaultVfs.h"
#include "platform/store/tests/MergingPeer.h"
#include "platform/store/tests/SleeplessVfs.h"

#include <gtest/gtest.h>

using namespace platform;
using shelf::MergingPeer;

namespace {

constexpr quint32 seeds = 300;
constexpr int acts = 3;
constexpr int stepsAnAct = 24;

// A random schedule of two or three contexts on one file.
class Schedule {
public:
    explicit Schedule(quint32 seed)
        : m_random(seed) {
        for (quint32 i = 0; i < 2 + seed % 2; ++i)
            m_peers.push_back(
                std::make_unique<MergingPeer>(m_path, QString(QChar(u'a' + i)), m_random, m_vfs));
        for (int i = 0; i < 3; ++i)
            m_peers[0]->fill();
    }

    void run() {
        for (int act = 0; act < acts && !::testing::Test::HasFailure(); ++act) {
            for (int i = 0; i < stepsAnAct && !::testing::Test::HasFailure(); ++i)
                step();
            converge();
        }
    }

private:
    void step() {
        auto& peer = *m_peers[m_random.bounded(static_cast<quint32>(m_peers.size()))];
        const auto action = m_random.bounded(20);
        if (action < 13)
            peer.edit();
        else if (action < 16)
            peer.save();
        else if (action < 17)
            peer.saveInVain();
        else if (action < 19)
            peer.merge();
        else
            peer.reopen();
        peer.checkSymmetry();
    }

    // Everybody saves and merges until there is nothing left to write.
    void converge() {
        const auto isQuiet = [](const auto& peer) { return !peer->hasChanges(); };
        int rounds = 0;
        do {
            ASSERT_LT(rounds++, 5) << "no end of changes";
            for (const auto& peer : m_peers)
                peer->save();
            for (const auto& peer : m_peers)
                peer->merge();
        } while (!std::ranges::all_of(m_peers, isQuiet));
        const QByteArray stored = shelf::storedDump(m_path);
        for (const auto& peer : m_peers) {
            peer->checkSymmetry();
            peer->checkCovers();
            EXPECT_EQ(peer->dump(), stored);
        }
        const auto connection = SqliteConnection::open(m_path, SqliteConnection::Access::ReadOnly).value();
        const auto broken = connection->scalar(QStringLiteral("PRAGMA foreign_key_check"));
        ASSERT_TRUE(broken);
        EXPECT_TRUE(broken->isNull()) << broken->toString().toStdString();
    }

    QTemporaryDir m_directory;
    QString m_path = m_directory.filePath(QStringLiteral("Shelf.sqlite"));
    FaultVfs m_vfs;
    SleeplessVfs m_sleepless;
    QRandomGenerator m_random;
    std::vector<std::unique_ptr<MergingPeer>> m_peers;
};

TEST(TwoContexts, AgreeAfterAnyScheduleOfEditsSavesAndMerges) {
    for (quint32 seed = 0; seed < seeds && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        Schedule(seed).run();
    }
}

} // namespace
