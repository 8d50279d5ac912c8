#include "Quillet/cloud/RecordIDArchive.h"

#include <QtCore/QtEndian>

namespace quillet {

namespace {

const QByteArray magic("QRID\x01");
constexpr qsizetype lengthBytes = 2;
constexpr qsizetype mostBytes = 65535;

bool appendName(QByteArray& bytes, const QString& name) {
    const QByteArray utf8 = name.toUtf8();
    if (utf8.size() > mostBytes || QString::fromUtf8(utf8) != name) return false;
    const quint16 length = qToBigEndian(static_cast<quint16>(utf8.size()));
    bytes.append(reinterpret_cast<const char*>(&length), lengthBytes).append(utf8);
    return true;
}

// Takes the name off the front of `rest`.
std::optional<QString> takeName(QByteArrayView& rest) {
    if (rest.size() < lengthBytes) return std::nullopt;
    const qsizetype length = qFromBigEndian<quint16>(rest.data());
    rest = rest.sliced(lengthBytes);
    if (rest.size() < length) return std::nullopt;
    const QByteArrayView utf8 = rest.first(length);
    rest = rest.sliced(length);
    QString name = QString::fromUtf8(utf8);
    return name.toUtf8() == utf8 ? std::optional(std::move(name)) : std::nullopt;
}

} // namespace

std::optional<QByteArray> RecordIDArchive::archive(const platform::CKRecordID& id) {
    QByteArray bytes = magic;
    for (const auto& name : {id.recordName, id.zoneID.zoneName, id.zoneID.ownerName})
        if (!appendName(bytes, name)) return std::nullopt;
    return bytes;
}

std::optional<platform::CKRecordID> RecordIDArchive::unarchive(const QByteArray& bytes) {
    if (!bytes.startsWith(magic)) return std::nullopt;
    QByteArrayView rest = QByteArrayView(bytes).sliced(magic.size());
    auto record = takeName(rest);
    auto zone = record ? takeName(rest) : std::nullopt;
    auto owner = zone ? takeName(rest) : std::nullopt;
    if (!owner || !rest.isEmpty()) return std::nullopt;
    return platform::CKRecordID{std::move(*record), {std::move(*zone), std::move(*owner)}};
}

} // namespace quillet
