#include "platform/cloud/RecordPayload.h"

#include <QtCore/QCborStreamReader>
#include <QtCore/QCborStreamWriter>

#include <cmath>
#include <limits>

namespace platform {

namespace {

// The years 1 to 9999, in milliseconds from 1970.
constexpr double earliest = -62'135'596'800'000.0;
constexpr double latest = 253'402'300'799'999.0;

struct ValueWriter {
    QCborStreamWriter& writer;

    void operator()(std::monostate) const { writer.append(nullptr); }

    void operator()(const QString& text) const { writer.append(text); }

    void operator()(const QByteArray& bytes) const { writer.append(bytes); }

    void operator()(bool value) const { writer.append(value); }

    void operator()(qint64 value) const { writer.append(value); }

    void operator()(const QDateTime& date) const {
        writer.append(QCborKnownTags::UnixTime_t);
        writer.append(static_cast<double>(date.toMSecsSinceEpoch()) / 1000);
    }
};

// A string of known length comes as one piece. One that says it is longer than all there is must not get the
// memory for it.
template <typename T>
std::optional<T> readString(QCborStreamReader& reader, qsizetype limit,
                            QCborStreamReader::StringResult<T> (QCborStreamReader::*readPiece)()) {
    if (!reader.isLengthKnown() || reader.length() > static_cast<quint64>(limit)) return std::nullopt;
    auto piece = (reader.*readPiece)();
    if (piece.status != QCborStreamReader::Ok) return std::nullopt;
    const bool ended = (reader.*readPiece)().status == QCborStreamReader::EndOfString;
    return ended ? std::optional(std::move(piece.data)) : std::nullopt;
}

std::optional<QString> readText(QCborStreamReader& reader, qsizetype limit) {
    return reader.isString() ? readString(reader, limit, &QCborStreamReader::readString) : std::nullopt;
}

std::optional<qint64> readInteger(QCborStreamReader& reader) {
    const bool isNegative = reader.isNegativeInteger();
    // The negative integer of CBOR's n is -1 - n; Qt gives 0 for the one of 2^64, which has no such form.
    const quint64 magnitude =
        isNegative ? quint64(reader.toNegativeInteger()) - 1 : reader.toUnsignedInteger();
    if (magnitude > quint64(std::numeric_limits<qint64>::max())) return std::nullopt;
    const auto value = static_cast<qint64>(magnitude);
    return reader.next() ? std::optional(isNegative ? -1 - value : value) : std::nullopt;
}

std::optional<QDateTime> readDate(QCborStreamReader& reader) {
    if (reader.toTag() != QCborTag(QCborKnownTags::UnixTime_t)) return std::nullopt;
    if (!reader.next() || !reader.isDouble()) return std::nullopt;
    const double milliseconds = std::round(reader.toDouble() * 1000);
    if (!(milliseconds >= earliest && milliseconds <= latest)) return std::nullopt;
    if (!reader.next()) return std::nullopt;
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(milliseconds), Qt::UTC);
}

template <typename T>
std::optional<CKRecordValue> toValue(std::optional<T> read) {
    return read ? std::optional<CKRecordValue>(std::move(*read)) : std::nullopt;
}

std::optional<CKRecordValue> readValue(QCborStreamReader& reader, qsizetype limit) {
    if (reader.isString()) return toValue(readText(reader, limit));
    if (reader.isByteArray()) return toValue(readString(reader, limit, &QCborStreamReader::readByteArray));
    if (reader.isInteger()) return toValue(readInteger(reader));
    if (reader.isTag()) return toValue(readDate(reader));
    if (!reader.isBool()) return std::nullopt;
    const bool value = reader.toBool();
    return reader.next() ? std::optional<CKRecordValue>(value) : std::nullopt;
}

} // namespace

QByteArray encodePayload(const CKRecord::Fields& fields) {
    QByteArray bytes;
    QCborStreamWriter writer(&bytes);
    writer.startMap(static_cast<quint64>(fields.size()));
    for (const auto& [key, value] : fields) {
        writer.append(key);
        std::visit(ValueWriter{writer}, value);
    }
    writer.endMap();
    return bytes;
}

std::optional<CKRecord::Fields> decodePayload(const QByteArray& bytes) {
    QCborStreamReader reader(bytes);
    if (!reader.isMap() || !reader.isLengthKnown() || !reader.enterContainer()) return std::nullopt;
    CKRecord::Fields fields;
    while (reader.lastError() == QCborError::NoError && reader.hasNext()) {
        auto key = readText(reader, bytes.size());
        if (!key) return std::nullopt;
        auto value = readValue(reader, bytes.size());
        if (!value || !fields.emplace(std::move(*key), std::move(*value)).second) return std::nullopt;
    }
    if (reader.lastError() != QCborError::NoError || !reader.leaveContainer()) return std::nullopt;
    return reader.currentOffset() == bytes.size() ? std::optional(std::move(fields)) : std::nullopt;
}

} // namespace platform
