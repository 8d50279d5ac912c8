#include "platform/highlightr/HighlightProcess.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>
#include <thread>

using namespace platform;
using namespace std::chrono_literals;

namespace {

const QString code = QStringLiteral("int x;");
const QString c = QStringLiteral("c");

QString helperPath() {
    return QCoreApplication::applicationDirPath() + QStringLiteral("/quillet-highlighter");
}

TEST(HighlightProcess, ARunawayIsKilledAtTheDeadlineAndTheNextRequestWorks) {
    HighlightProcess process(helperPath(), {.start = 30s, .request = 300ms, .perMillion = 0ms});
    // Many languages over a sample of this size take seconds; the deadline falls in the middle.
    const QString hostile = QStringLiteral("{{[[((<<\"'`aA0_$#@!%^&*-+=|\\/?~ ").repeated(20'000);
    EXPECT_FALSE(process.highlight(hostile, std::nullopt, static_cast<quint32>(hostile.size())));
    EXPECT_EQ(process.pid(), 0);
    HighlightProcess patient(helperPath(), {.start = 30s, .request = 30s});
    EXPECT_TRUE(patient.highlight(code, c, 2048));
}

TEST(HighlightProcess, AHelperKilledBetweenRequestsIsStartedAnew) {
    HighlightProcess process(helperPath(), {.start = 30s, .request = 30s});
    ASSERT_TRUE(process.highlight(code, c, 2048));
    const pid_t first = process.pid();
    ASSERT_GT(first, 0);
    kill(first, SIGKILL);
    EXPECT_TRUE(process.highlight(code + code, c, 2048));
    EXPECT_NE(process.pid(), first);
}

TEST(HighlightProcess, ManyThreadsMayAskAtOnce) {
    HighlightProcess process(helperPath(), {.start = 30s, .request = 30s});
    std::atomic<int> answers = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 8; ++i)
            threads.emplace_back([&, i] {
                const QString own = QStringLiteral("int x%1; ").arg(i).repeated(i + 1);
                for (int round = 0; round < 20; ++round) {
                    const auto result = process.highlight(own, c, 2048);
                    if (result && result->runs.size() == static_cast<std::size_t>(i) + 1) ++answers;
                }
            });
    }
    EXPECT_EQ(answers, 160);
}

TEST(HighlightProcess, TheHelperCanOpenNothing) {
    HighlightProcess process(helperPath(), {.start = 30s, .request = 30s});
    ASSERT_TRUE(process.highlight(code, c, 2048));
    QFile limits(QStringLiteral("/proc/%1/limits").arg(process.pid()));
    ASSERT_TRUE(limits.open(QIODevice::ReadOnly));
    const QString text = QString::fromLatin1(limits.readAll()).simplified();
    EXPECT_TRUE(text.contains(QStringLiteral("Max open files 3 3"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Max file size 0 0")));
}

TEST(HighlightProcess, WhatWasAskedBeforeIsKnownWithoutTheHelper) {
    HighlightProcess process(helperPath(), {.start = 30s, .request = 30s});
    const auto first = process.highlight(code, c, 2048);
    ASSERT_TRUE(first);
    const pid_t helper = process.pid();
    kill(helper, SIGKILL);
    EXPECT_EQ(process.highlight(code, c, 16), first) << "no sample is taken of a known language";
    EXPECT_EQ(process.pid(), helper);
    EXPECT_NE(process.highlight(code, QStringLiteral("cpp"), 2048), first);
    EXPECT_NE(process.highlight(code + u' ', c, 2048), first);
    EXPECT_NE(process.highlight(code, std::nullopt, 2048), first);
}

TEST(HighlightProcess, ARequestThatNobodyWantsAnyMoreIsNotMade) {
    HighlightProcess process(helperPath(), {.start = 30s, .request = 30s});
    EXPECT_FALSE(process.highlight(code, c, 2048, [] { return false; }));
    EXPECT_EQ(process.pid(), 0);
    EXPECT_TRUE(process.highlight(code, c, 2048, [] { return true; }));
}

TEST(HighlightCache, KeepsWhatWasUsedLastWithinItsCapacity) {
    constexpr qsizetype capacity = 10'000;
    highlight::HighlightCache cache(capacity);
    const auto question = [](int number) {
        return highlight::Question{QString(1000, QChar(u'a' + number)), c, 0};
    };
    for (int i = 0; i < 10; ++i) {
        cache.add(question(i), std::make_shared<HighlightedCode>());
        EXPECT_TRUE(cache.find(question(0))) << i;
    }
    EXPECT_FALSE(cache.find(question(5)));
    EXPECT_TRUE(cache.find(question(9)));
    cache.add({QString(capacity, u'x'), c, 0}, std::make_shared<HighlightedCode>());
    EXPECT_FALSE(cache.find({QString(capacity, u'x'), c, 0}));
    EXPECT_TRUE(cache.find(question(9))) << "what is too large pushes nothing out";
}

TEST(HighlightCache, KeepsNoLongTrailOfWhatWasTyped) {
    constexpr auto most = static_cast<int>(highlight::HighlightCache::mostEntries);
    highlight::HighlightCache cache(24 << 20);
    const auto question = [](int length) { return highlight::Question{QString(length, u'a'), c, 0}; };
    for (int length = 0; length <= most; ++length)
        cache.add(question(length), std::make_shared<HighlightedCode>());
    EXPECT_FALSE(cache.find(question(0)));
    EXPECT_TRUE(cache.find(question(1)));
    EXPECT_TRUE(cache.find(question(most)));
}

TEST(PriorityMutex, UrgentOnesPassPatientOnes) {
    using highlight::Priority;
    highlight::PriorityMutex mutex;
    std::vector<Priority> order; // guarded by the mutex
    std::atomic<int> begun = 0;
    mutex.lock(Priority::Patient);
    {
        std::vector<std::jthread> threads;
        const auto start = [&](Priority priority) {
            threads.emplace_back([&, priority] {
                ++begun;
                mutex.lock(priority);
                order.push_back(priority);
                mutex.unlock();
            });
        };
        for (int i = 0; i < 4; ++i)
            start(Priority::Patient);
        start(Priority::Urgent);
        while (begun < 5 || mutex.urgentWaiting() == 0)
            std::this_thread::yield();
        mutex.unlock();
    }
    ASSERT_EQ(order.size(), 5U);
    EXPECT_EQ(order.front(), Priority::Urgent);
}

// Programs in the helper's place that do everything wrong.
class WrongHelper : public ::testing::TestWithParam<const char*> {};

TEST_P(WrongHelper, GivesNoColoursAndNoHang) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("helper"));
    QFile script(path);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write(QByteArray("#!/bin/sh\nPATH=/usr/bin:/bin\n") + GetParam() + "\n");
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    script.close();
    HighlightProcess process(path, {.start = 500ms, .request = 500ms});
    EXPECT_FALSE(process.highlight(code, c, 2048));
    EXPECT_FALSE(process.highlight(code.repeated(50'000), c, 2048));
}

INSTANTIATE_TEST_SUITE_P(Helpers, WrongHelper,
                         ::testing::Values("exit 0", "exec sleep 100", "cat /dev/zero", "cat /dev/urandom",
                                           "printf '\\0\\0\\0\\0'; exec sleep 100", // ready, then silent
                                           "printf '\\0\\0\\0\\0'; exec cat",       // gives the request back
                                           "printf '\\0\\0\\0\\0\\377\\377\\377\\377'", // an endless answer
                                           "printf '\\0\\0\\0\\0\\4\\0\\0\\0{\\0}\\0'; exec sleep 100"));

TEST(HighlightProcess, AMissingHelperGivesNoColours) {
    EXPECT_FALSE(HighlightProcess(QStringLiteral("/nonexistent/helper")).highlight(code, c, 2048));
}

TEST(HighlightedCode, AnswersThatBreakARuleAreNotBelieved) {
    const auto parse = [](const char* json) { return HighlightedCode::parse(QString::fromLatin1(json), 10); };
    EXPECT_TRUE(parse(R"({"language":"c","length":10,"paths":["a b"],"runs":[0,5,0,5,5,0]})"));
    const char* broken[] = {"",
                            "[]",
                            "{",
                            R"({"length":9,"paths":["a"],"runs":[]})",
                            R"({"length":10,"paths":["a"],"runs":[0,11,0]})",
                            R"({"length":10,"paths":["a"],"runs":[-1,2,0]})",
                            R"({"length":10,"paths":["a"],"runs":[0,0,0]})",
                            R"({"length":10,"paths":["a"],"runs":[0,5,1]})",
                            R"({"length":10,"paths":["a"],"runs":[0,5,0,4,2,0]})",
                            R"({"length":10,"paths":["a"],"runs":[9223372036854775807,5,0]})",
                            R"({"length":10,"paths":["a"],"runs":[5,9223372036854775807,0]})",
                            R"({"length":10,"paths":["a"],"runs":[0,5]})",
                            R"({"length":10,"paths":["a"],"runs":["0",5,0]})"};
    for (const char* json : broken)
        EXPECT_FALSE(parse(json)) << json;
}

} // namespace
