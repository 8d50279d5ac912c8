#include "Quillet/core/Repository.h"
#include "Quillet/core/Segment.h"
#include "Quillet/core/Snippet.h"
#include "Quillet/core/tests/TemporaryLibrary.h"

using namespace quillet;

namespace {

// Two contexts on one library; ours does not hear of the other's saves until it saves or merges itself.
class TextConflict : public TemporaryLibrary {
protected:
    TextConflict() {
        ours = Snippet::create(QStringLiteral("Shared"), QStringLiteral("note"), QStringLiteral("a\nb\nc\n"),
                               QStringLiteral("swift"));
        CoreDataStack::shared().save(SaveReason::AddedSnippet);
        theirs = Repository<Snippet>(other.viewContext()).results().value().at(0);
    }

    void writeElsewhere(const QString& code) {
        theirs->setCode(code);
        ASSERT_TRUE(other.viewContext().save());
    }

    CoreDataStack other{directory};
    std::shared_ptr<Snippet> ours;
    std::shared_ptr<Snippet> theirs;
};

TEST_F(TextConflict, LinesOfBothAreTakenWhetherASaveOrAMergeMeetsThem) {
    writeElsewhere(QStringLiteral("A\nb\nc\n"));
    ours->setCode(QStringLiteral("a\nb\nC\n"));
    ASSERT_TRUE(context().save());
    EXPECT_EQ(ours->code(), QStringLiteral("A\nb\nC\n"));

    ASSERT_TRUE(other.viewContext().mergeChanges());
    ours->setCode(QStringLiteral("A\nb\nC\nd\n"));
    writeElsewhere(QStringLiteral("z\nA\nb\nC\n"));
    ASSERT_TRUE(context().mergeChanges());
    EXPECT_EQ(ours->code(), QStringLiteral("z\nA\nb\nC\nd\n"));
    // Once taken in it is no news any more.
    writeElsewhere(QStringLiteral("z\nA\nb\nC\ne\n"));
    ours->setTitle(QStringLiteral("Title"));
    ASSERT_TRUE(context().save());
    ASSERT_TRUE(other.viewContext().mergeChanges());
    EXPECT_EQ(theirs->code(), ours->code());
    EXPECT_EQ(count<Segment>(), 1U) << "the lines behind the last one are in each other's way";
}

TEST_F(TextConflict, ATextThatIsInTheWayBecomesASegmentAndNothingIsKeptTwice) {
    writeElsewhere(QStringLiteral("a\ntheirs\nc\n"));
    ours->setCode(QStringLiteral("a\nours\nc\n"));
    ours->setNotes(QStringLiteral("other note"));
    ASSERT_TRUE(context().save());
    ASSERT_TRUE(context().save());
    EXPECT_EQ(ours->code(), QStringLiteral("a\nours\nc\n"));
    ASSERT_TRUE(other.viewContext().mergeChanges());
    const auto segments = theirs->sortedSegments();
    ASSERT_EQ(segments.size(), 1U);
    EXPECT_EQ(segments[0]->code(), QStringLiteral("a\ntheirs\nc\n"));
    EXPECT_TRUE(segments[0]->title().startsWith(QStringLiteral("Conflict - ")));
}

TEST_F(TextConflict, TheOtherTextOfASegmentGoesBesideIt) {
    const auto segment = std::make_shared<Segment>();
    context().insert(segment);
    segment->setToOne(Segment::OfSnippet, ours.get());
    segment->setCode(QStringLiteral("a"));
    ASSERT_TRUE(context().save());
    ASSERT_TRUE(other.viewContext().mergeChanges());
    theirs->sortedSegments().at(0)->setCode(QStringLiteral("theirs"));
    ASSERT_TRUE(other.viewContext().save());
    segment->setCode(QStringLiteral("ours"));
    ASSERT_TRUE(context().save());
    EXPECT_EQ(segment->code(), QStringLiteral("ours"));
    EXPECT_EQ(ours->sortedSegments().size(), 2U);
}

} // namespace
