#include "Quillet/core/Repository.h"

#include "Quillet/core/Folder.h"
#include "Quillet/core/SnippetService.h"
#include "Quillet/core/tests/TemporaryLibrary.h"

#include <QtTest/QTest>

using namespace quillet;

namespace {

class RepositoryTest : public TemporaryLibrary {
protected:
    static void addSnippet() {
        Snippet::create(QStringLiteral("t"), {}, QStringLiteral("c"), QStringLiteral("swift"));
        CoreDataStack::shared().save(SaveReason::AddedSnippet);
    }
};

TEST_F(RepositoryTest, StartsWithWhatIsStoredAndPublishesInALaterTurn) {
    addSnippet();
    Repository<Snippet> repository(context());
    EXPECT_EQ(repository.results().value().size(), 1U);
    std::vector<std::size_t> seen;
    const auto subscription =
        repository.results().observe([&](const auto& results) { seen.push_back(results.size()); });
    addSnippet();
    EXPECT_EQ(repository.results().value().size(), 1U);
    turn();
    EXPECT_EQ(seen, (std::vector<std::size_t>{1, 2}));
}

TEST_F(RepositoryTest, TwoChangesInOneTurnAreToldTwice) {
    Repository<Snippet> repository(context());
    std::vector<std::size_t> seen;
    const auto subscription =
        repository.results().observe([&](const auto& results) { seen.push_back(results.size()); });
    addSnippet();
    addSnippet();
    turn();
    EXPECT_EQ(seen, (std::vector<std::size_t>{0, 2, 2}));
}

TEST_F(RepositoryTest, MayGoBeforeItsScheduledStepRuns) {
    auto repository = std::make_unique<Repository<Snippet>>(context());
    int told = 0;
    const auto subscription = repository->results().observeChanges([&](const auto&) { ++told; });
    addSnippet();
    repository.reset();
    turn();
    EXPECT_EQ(told, 1) << "the scheduled step runs once more";
    addSnippet();
    turn();
    EXPECT_EQ(told, 1);
}

TEST_F(RepositoryTest, OtherEntitiesDoNotDisturb) {
    Repository<Folder> folders(context());
    int told = 0;
    const auto subscription = folders.results().observe([&](const auto&) { ++told; });
    addSnippet();
    turn();
    EXPECT_EQ(told, 1);
}

TEST_F(RepositoryTest, WhatAnotherConnectionWroteArrivesByItself) {
    Repository<Snippet> repository(context());
    CoreDataStack other(directory);
    auto snippet = std::make_shared<Snippet>();
    snippet->setTitle(QStringLiteral("theirs"));
    snippet->setCode(QStringLiteral("c"));
    SnippetService(other).save(snippet);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !repository.results().value().empty(); }));
    EXPECT_EQ(repository.results().value().at(0)->title(), QStringLiteral("theirs"));
}

} // namespace
