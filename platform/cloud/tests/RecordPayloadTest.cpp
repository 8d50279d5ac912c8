#include "platform/cloud/RecordPayload.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace platform;

namespace {

CKRecord::Fields everyKind() {
    return {{QStringLiteral("text"), QStringLiteral("caf\u00e9 \U0001F600")},
            {QStringLiteral("empty"), QString(QStringLiteral(""))},
            {QStringLiteral("date"), QDateTime::fromMSecsSinceEpoch(1'700'000'000'123, Qt::UTC)},
            {QStringLiteral("old"), QDateTime::fromMSecsSinceEpoch(-1, Qt::UTC)},
            {QStringLiteral("bytes"), QByteArray("\0\xff", 2)},
            {QStringLiteral("flag"), true},
            {QStringLiteral("least"), std::numeric_limits<qint64>::min()},
            {QStringLiteral("most"), std::numeric_limits<qint64>::max()}};
}

QByteArray hex(const char* digits) {
    return QByteArray::fromHex(digits);
}

TEST(RecordPayloadTest, EveryKindOfValueComesBack) {
    EXPECT_EQ(decodePayload(encodePayload(everyKind())), everyKind());
    EXPECT_EQ(decodePayload(encodePayload({})), CKRecord::Fields());
}

TEST(RecordPayloadTest, AnythingButOneFlatMapIsRefused) {
    const struct {
        const char* what;
        QByteArray bytes;
    } refused[] = {
        {"nothing", {}},
        {"no map", hex("01")},
        {"a byte behind the end", encodePayload(everyKind()) + '\0'},
        {"a key that is no text", hex("a10101")},
        {"a key twice", hex("a2616101616102")},
        {"a map of unknown length", hex("bf616101ff")},
        {"a text of unknown length", hex("a161617f6161ff")},
        {"an array", hex("a1616180")},
        {"a map in the map", hex("a16161a0")},
        {"null", hex("a16161f6")},
        {"a float", hex("a16161fb3ff0000000000000")},
        {"another tag", hex("a16161c2fb3ff0000000000000")},
        {"a date that is text", hex("a16161c16161")},
        {"a date that is no number", hex("a16161c1fb7ff8000000000000")},
        {"a date that never comes", hex("a16161c1fb7e37e43c8800759c")},
        {"an integer of 64 bits", hex("a161611bffffffffffffffff")},
        {"a negative one of 65", hex("a161613bffffffffffffffff")},
        {"a text that is no UTF-8", hex("a1616161ff")},
        {"a text of a gigabyte", hex("a161617a40000000")},
        {"bytes of 2^63", hex("a161615b8000000000000000")},
        {"a map of 2^60", hex("bb1000000000000000616101")},
    };

    for (const auto& [what, bytes] : refused)
        EXPECT_FALSE(decodePayload(bytes)) << what;
}

TEST(RecordPayloadTest, CutAndFlippedBytesNeverCrashAndWhatIsReadIsWritable) {
    const QByteArray whole = encodePayload(everyKind());
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(decodePayload(whole.left(size))) << size;
    const unsigned seed = 7;
    std::mt19937 random(seed);
    for (int round = 0; round < 20'000; ++round) {
        QByteArray bytes = whole;
        for (int flips = 0; flips < 3; ++flips)
            bytes[static_cast<qsizetype>(random() % whole.size())] = static_cast<char>(random());
        const auto fields = decodePayload(bytes);
        if (!fields) continue;
        EXPECT_EQ(decodePayload(encodePayload(*fields)), fields) << "seed " << seed << " round " << round;
    }
}

TEST(RecordPayloadTest, AFieldOfAnotherTypeReadsAsAbsentAndAnAbsentValueClears) {
    CKRecord record(QStringLiteral("T"), {QStringLiteral("n"), {QStringLiteral("z")}});
    record[QStringLiteral("k")] = qint64(1);
    EXPECT_EQ(as<qint64>(record[QStringLiteral("k")]), 1);
    EXPECT_EQ(as<bool>(record[QStringLiteral("k")]), std::nullopt);
    EXPECT_EQ(as<QString>(record[QStringLiteral("other")]), std::nullopt);
    EXPECT_EQ(record.fields().size(), 1U) << "reading must not make a field";
    record[QStringLiteral("k")] = CKRecordValue();
    EXPECT_TRUE(record.fields().empty());
}

} // namespace
