#include "platform/store/tests/MixedLibrary.h"

#include <gtest/gtest.h>

#include <random>

using namespace platform;
using shelf::Library;

namespace {

constexpr qsizetype pageSize = 8192; // of the store, in bytes

class Corruption : public ::testing::Test {
protected:
    void SetUp() override {
        Library library(path);
        shelf::fill(library, 24);
        ASSERT_TRUE(library.context.save());
        stored = shelf::dump(library.context);
        whole = shelf::bytesOf(path);
    }

    // What opening these bytes as a store gives; a refused file stays as it is.
    std::unique_ptr<Library> opened(const QByteArray& bytes) const {
        shelf::putFile(path, bytes);
        auto library = std::make_unique<Library>(path);
        if (library->error) {
            EXPECT_EQ(shelf::bytesOf(path), bytes) << "a refused file was changed";
        }
        return library;
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Shelf.sqlite"));
    QByteArray stored; // its dump
    QByteArray whole;
    std::mt19937 random{7};
};

// A file of no bytes at all is a new store, so the least is one.
TEST_F(Corruption, ATruncatedStoreIsRefused) {
    for (int round = 0; round < 200; ++round) {
        const auto size = 1 + static_cast<qsizetype>(random() % (whole.size() - 1));
        SCOPED_TRACE(::testing::Message() << size << " bytes of " << whole.size());
        EXPECT_TRUE(opened(whole.left(size))->error);
    }
    EXPECT_TRUE(opened(whole.left(whole.size() - 1))->error);
}

TEST_F(Corruption, AFlippedBitLeavesAStoreThatIsRefusedOrReadable) {
    int refused = 0;
    int changed = 0;
    const auto objects = stored.count('\n');
    for (int round = 0; round < 300; ++round) {
        // Every third round hits the file's header and the first pages, where the structure is dense.
        const auto range =
            round % 3 == 0 ? static_cast<unsigned>(pageSize * 3) : static_cast<unsigned>(whole.size());
        const auto at = static_cast<qsizetype>(random() % range);
        const auto bit = static_cast<int>(random() % 8);
        SCOPED_TRACE(::testing::Message() << "bit " << bit << " of byte " << at);
        QByteArray bytes = whole;
        bytes[at] = static_cast<char>(bytes[at] ^ (1 << bit));
        const auto library = opened(bytes);
        if (library->error) {
            ++refused;
            continue;
        }
        const QByteArray found = shelf::dump(library->context);
        changed += found != stored;
        EXPECT_EQ(found.count('\n'), objects) << "an object went missing unsaid";
        // A save that returns has written its change, whatever the flip hit.
        for (const auto& book : library->all("Book"))
            book->setValue(shelf::Pages, 77);
        if (!library->context.save()) continue;
        const Library reopened(path);
        if (reopened.error) continue;
        for (const auto& book : reopened.context.fetch({QStringLiteral("Book"), {}, {}, {}}))
            EXPECT_EQ(book->value(shelf::Pages).toInt(), 77);
    }
    EXPECT_GT(refused, 10);
    EXPECT_GT(changed, 10) << "the flips did not come upon any value";
}

} // namespace
