#include "platform/mirror/RecordCodec.h"

#include "platform/mirror/HybridClock.h"
#include "platform/mirror/TextValue.h"

#include <QtCore/QCborMap>
#include <gtest/gtest.h>

#include <random>

namespace platform {

namespace {

const QUuid first(QStringLiteral("{11111111-0000-4000-8000-000000000001}"));
const QUuid second(QStringLiteral("{22222222-0000-4000-8000-000000000002}"));

Stamp at(WallTime wall, const QUuid& device) {
    return {HybridClock::fromWall(wall), device};
}

ObjectState sample() {
    ObjectState state;
    state.entity = QStringLiteral("Snippet");
    state.write(QStringLiteral("title"), at(1'600'000'000'000, first), textValue(QStringLiteral("A \u00E9")));
    state.write(QStringLiteral("title"), at(1'600'000'000'500, second), textValue(QStringLiteral("B")));
    state.write(QStringLiteral("created"), at(1'600'000'000'000, first),
                QCborValue(qint64{1'600'000'000'000}));
    state.writeText(QStringLiteral("code"), at(1'600'000'000'000, first), textValue(QString(QChar(0xDC00))));
    state.setMember(QStringLiteral("tags"), second, at(1'600'000'001'000, second), true);
    state.setMember(QStringLiteral("tags"), first, at(1'600'000'001'000, second), false);
    state.markDeleted(HybridClock::fromWall(1'600'000'002'000));
    state.write(QStringLiteral("folder"), at(1'600'000'003'000, first), QCborValue(nullptr));
    state.unknown.insert(QCborValue(40), QCborMap{{QStringLiteral("x"), 1.5}});
    state.unknown.insert(QStringLiteral("colour"), 7);
    return state;
}

TEST(RecordCodecTest, AStateComesBack) {
    const ObjectState state = sample();
    const QByteArray payload = encodeState(state).payload;
    const auto decoded = decodeState(payload);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->registers, state.registers);
    EXPECT_EQ(decoded->sets, state.sets);
    EXPECT_EQ(decoded->history, state.history);
    EXPECT_EQ(decoded->deletionSeen, state.deletionSeen);
    EXPECT_EQ(decoded->deletionTime, state.deletionTime);
    EXPECT_EQ(decoded->entity, state.entity);
    EXPECT_EQ(encodeState(*decoded).payload, payload);
    EXPECT_LT(payload.size(), 250);
}

TEST(RecordCodecTest, EqualStatesHaveEqualBytes) {
    ObjectState one = sample();
    ObjectState other = sample();
    one.unknown.insert(QStringLiteral("size"), 1);
    other.unknown.insert(QStringLiteral("area"), 2);
    ObjectState joined = one;
    joined.join(other);
    other.join(one);
    EXPECT_EQ(joined, other);
    EXPECT_EQ(encodeState(joined).payload, encodeState(other).payload);
    EXPECT_EQ(decodeState(encodeState(joined).payload), joined);
}

TEST(RecordCodecTest, BigTextsTravelBeside) {
    for (const auto& big : {QCborValue(QString(70'000, u'x')), QCborValue(QByteArray(70'000, '\x80')),
                            QCborValue(QString(30'000, u'\u20AC'))}) {
        ObjectState state = sample();
        state.writeText(QStringLiteral("code"), at(1'700'000'000'000, first), big);
        const EncodedState encoded = encodeState(state);
        ASSERT_EQ(encoded.assets.size(), 1U);
        EXPECT_LT(encoded.payload.size(), 400);
        const auto decoded = decodeState(encoded.payload);
        ASSERT_TRUE(decoded);
        EXPECT_EQ(referredAsset(*decoded->registers.at(QStringLiteral("code")).value),
                  encoded.assets[0].hash);
        EXPECT_EQ(valueOf(encoded.assets[0]), big);
    }
    ObjectState state = sample();
    state.write(QStringLiteral("code"), at(1'700'000'000'000, first), QString(largestInlineValue, u'x'));
    EXPECT_TRUE(encodeState(state).assets.empty());
}

TEST(RecordCodecTest, AnAssetIsWhatItsHashSays) {
    CloudAsset asset = assetOf(QCborValue(QStringLiteral("text")));
    CloudAsset other = assetOf(QCborValue(QByteArrayLiteral("text")));
    EXPECT_NE(asset.hash, other.hash);
    std::swap(asset.content, other.content);
    EXPECT_FALSE(valueOf(asset));
    EXPECT_FALSE(valueOf({asset.hash, QByteArrayLiteral("\xff\xff\xff\xff zip")}));
    EXPECT_FALSE(valueOf({asset.hash, {}}));
}

QByteArray withFormat(int format) {
    QCborMap map = QCborValue::fromCbor(encodeState(sample()).payload).toMap();
    map[qint64{0}] = format;
    return QCborValue(map).toCbor();
}

TEST(RecordCodecTest, WhatCannotBeReadIsRefused) {
    EXPECT_TRUE(decodeState(withFormat(1)));
    EXPECT_FALSE(decodeState(withFormat(2)));
    EXPECT_FALSE(decodeState({}));
    EXPECT_FALSE(decodeState(encodeState(sample()).payload + '\0'));
    ObjectState late = sample();
    late.write(QStringLiteral("title"), {HybridClock::latestTime, first}, QCborValue(1));
    EXPECT_TRUE(decodeState(encodeState(late).payload));
    late.write(QStringLiteral("title"), {HybridClock::latestTime + 1, first}, QCborValue(1));
    EXPECT_FALSE(decodeState(encodeState(late).payload));
    EXPECT_FALSE(decodeState(QByteArray(100'000, '\x81'))) << "deep nesting";
}

// Flips, cuts and insertions: nothing crashes, and what is still read is written and read as the same.
TEST(RecordCodecTest, MutatedBytesAreRefusedOrRead) {
    std::mt19937 random(11);
    const QByteArray payload = encodeState(sample()).payload;
    int read = 0;
    for (int i = 0; i < 30'000; ++i) {
        QByteArray mutated = payload;
        for (auto edits = 1 + random() % 3; edits > 0; --edits) {
            const auto place = random() % mutated.size();
            switch (random() % 4) {
            case 0:
                mutated.remove(place, 1 + random() % 4);
                break;
            case 1:
                mutated.insert(place, static_cast<char>(random()));
                break;
            default:
                mutated[place] = static_cast<char>(random());
            }
            if (mutated.isEmpty()) mutated.append('\0');
        }
        const auto state = decodeState(mutated);
        if (!state) continue;
        ++read;
        ASSERT_EQ(decodeState(encodeState(*state).payload), state) << mutated.toHex().toStdString();
    }
    EXPECT_GT(read, 100);
}

} // namespace

} // namespace platform
