#include "platform/mirror/RecordCodec.h"

#include "platform/foundation/FatalError.h"
#include "platform/mirror/HybridClock.h"

#include <QtCore/QCborArray>
#include <QtCore/QCborStreamWriter>
#include <QtCore/QCryptographicHash>
#include <QtCore/QtEndian>

#include <algorithm>
#include <set>

namespace platform {

namespace {

constexpr int format = 1;
constexpr qsizetype largestPayload = qsizetype{64} * 1024 * 1024;
constexpr quint32 largestAsset = 256 * 1024 * 1024;
constexpr qsizetype idSize = 16;
constexpr auto assetTag = static_cast<QCborTag>(28001);

enum Key : qint64 {
    Format,
    Entity,
    Devices,
    Stamps,
    Registers,
    Sets,
    Deletion,
    DeletionTime,
    History,
    KeyCount
};

// All stamps of a state and the devices that made them, by index.
class StampTable {
public:
    explicit StampTable(const ObjectState& state) {
        for (const auto& [property, entry] : state.registers) {
            m_stamps.push_back(entry.stamp);
            add(entry.seen);
        }
        for (const auto& [relationship, elements] : state.sets)
            for (const auto& [target, element] : elements)
                m_stamps.push_back(element.stamp);
        add(state.deletionSeen);
        add(state.history);
        makeUnique(m_stamps);
        for (const Stamp& stamp : m_stamps)
            m_devices.push_back(stamp.device);
        makeUnique(m_devices);
    }

    qint64 indexOf(const Stamp& stamp) const {
        return std::ranges::lower_bound(m_stamps, stamp) - m_stamps.begin();
    }

    void write(QCborStreamWriter& writer) const {
        writer.append(qint64{Devices});
        QByteArray devices;
        for (const QUuid& device : m_devices)
            devices.append(device.toRfc4122());
        writer.append(devices);
        writer.append(qint64{Stamps});
        writer.startArray(2 * m_stamps.size());
        std::uint64_t previous = 0;
        for (const Stamp& stamp : m_stamps) {
            writer.append(qint64{std::ranges::lower_bound(m_devices, stamp.device) - m_devices.begin()});
            writer.append(quint64{stamp.time - previous});
            previous = stamp.time;
        }
        writer.endArray();
    }

private:
    void add(const VersionVector& vector) {
        for (const auto& [device, time] : vector.times())
            m_stamps.push_back({time, device});
    }

    template <typename T>
    static void makeUnique(std::vector<T>& values) {
        std::ranges::sort(values);
        const auto rest = std::ranges::unique(values);
        values.erase(rest.begin(), rest.end());
    }

    std::vector<Stamp> m_stamps;
    std::vector<QUuid> m_devices;
};

// In bytes, or less where it is small anyway; 0 where the value is no text and no bytes.
qsizetype sizeOf(const QCborValue& value) {
    if (value.isString()) {
        const QString text = value.toString();
        return 3 * text.size() <= largestInlineValue ? text.size() : text.toUtf8().size();
    }
    return value.isByteArray() ? value.toByteArray().size() : 0;
}

class StateWriter {
public:
    explicit StateWriter(const ObjectState& state)
        : m_state(state)
        , m_table(state) {}

    EncodedState write() {
        QCborStreamWriter writer(&m_encoded.payload);
        writer.startMap();
        writer.append(qint64{Format});
        writer.append(qint64{format});
        writer.append(qint64{Entity});
        writer.append(m_state.entity);
        m_table.write(writer);
        writeRegisters(writer);
        writeSets(writer);
        if (!m_state.deletionSeen.isEmpty()) writeVector(writer, Deletion, m_state.deletionSeen);
        if (m_state.deletionTime != 0) {
            writer.append(qint64{DeletionTime});
            writer.append(quint64{m_state.deletionTime});
        }
        if (m_state.history != m_state.standingWrites()) writeVector(writer, History, m_state.history);
        for (const auto& [key, value] : m_state.unknown) {
            QCborValue(key).toCbor(writer);
            QCborValue(value).toCbor(writer);
        }
        writer.endMap();
        return std::move(m_encoded);
    }

private:
    void writeRegisters(QCborStreamWriter& writer) {
        writer.append(qint64{Registers});
        writer.startMap(m_state.registers.size());
        for (const auto& [property, entry] : m_state.registers) {
            writer.append(property);
            writer.startArray(entry.seen.isEmpty() ? 2 : 3);
            writer.append(m_table.indexOf(entry.stamp));
            writeValue(writer, entry);
            if (!entry.seen.isEmpty()) writeStamps(writer, entry.seen);
            writer.endArray();
        }
        writer.endMap();
    }

    void writeValue(QCborStreamWriter& writer, const Register& entry) {
        if (!entry.value) fatalError("a register without its value was to leave the store");
        if (sizeOf(*entry.value) <= largestInlineValue) {
            entry.value->toCbor(writer);
            return;
        }
        m_encoded.assets.push_back(assetOf(*entry.value));
        QCborValue(assetTag, m_encoded.assets.back().hash).toCbor(writer);
    }

    void writeSets(QCborStreamWriter& writer) {
        writer.append(qint64{Sets});
        writer.startMap(m_state.sets.size());
        for (const auto& [relationship, elements] : m_state.sets) {
            writer.append(relationship);
            writer.startMap(elements.size());
            for (const auto& [target, element] : elements) {
                writer.append(target.toRfc4122());
                writer.append(2 * m_table.indexOf(element.stamp) + (element.isMember ? 1 : 0));
            }
            writer.endMap();
        }
        writer.endMap();
    }

    void writeVector(QCborStreamWriter& writer, Key key, const VersionVector& vector) {
        writer.append(qint64{key});
        writeStamps(writer, vector);
    }

    void writeStamps(QCborStreamWriter& writer, const VersionVector& vector) {
        writer.startArray(vector.times().size());
        for (const auto& [device, time] : vector.times())
            writer.append(m_table.indexOf({time, device}));
        writer.endArray();
    }

    const ObjectState& m_state;
    StampTable m_table;
    EncodedState m_encoded;
};

// Reads the map; whatever is not as it should be leaves m_isGood false.
class StateReader {
public:
    explicit StateReader(const QCborMap& map)
        : m_map(map) {}

    std::optional<ObjectState> read() {
        if (!m_map.value(Format).isInteger() || m_map.value(Format).toInteger() != format)
            return std::nullopt;
        require(m_map.value(Entity).isString());
        m_state.entity = m_map.value(Entity).toString();
        readStamps(readDevices());
        readRegisters();
        readSets();
        if (m_map.contains(qint64{Deletion})) m_state.deletionSeen = vectorOf(m_map.value(Deletion));
        if (m_map.contains(qint64{DeletionTime})) m_state.deletionTime = timeOf(m_map.value(DeletionTime));
        m_state.history =
            m_map.contains(qint64{History}) ? vectorOf(m_map.value(History)) : m_state.standingWrites();
        readUnknown();
        return m_isGood ? std::optional(std::move(m_state)) : std::nullopt;
    }

private:
    void require(bool condition) { m_isGood = m_isGood && condition; }

    std::uint64_t timeOf(const QCborValue& value) {
        const qint64 time = value.toInteger(-1);
        require(time >= 0 && static_cast<std::uint64_t>(time) <= HybridClock::latestTime);
        return m_isGood ? static_cast<std::uint64_t>(time) : 0;
    }

    QUuid idOf(const QCborValue& value) {
        const QByteArray bytes = value.toByteArray();
        require(bytes.size() == idSize);
        return m_isGood ? QUuid::fromRfc4122(bytes) : QUuid();
    }

    std::vector<QUuid> readDevices() {
        const QByteArray bytes = m_map.value(Devices).toByteArray();
        require(m_map.value(Devices).isByteArray() && bytes.size() % idSize == 0);
        std::vector<QUuid> devices;
        for (qsizetype start = 0; m_isGood && start < bytes.size(); start += idSize)
            devices.push_back(idOf(QCborValue(bytes.mid(start, idSize))));
        return devices;
    }

    void readStamps(const std::vector<QUuid>& devices) {
        const QCborArray array = m_map.value(Stamps).toArray();
        require(m_map.value(Stamps).isArray() && array.size() % 2 == 0);
        std::uint64_t time = 0;
        for (qsizetype i = 0; m_isGood && i < array.size(); i += 2) {
            const qint64 device = array.at(i).toInteger(-1);
            require(device >= 0 && device < std::ssize(devices));
            time += timeOf(array.at(i + 1));
            require(time <= HybridClock::latestTime);
            if (m_isGood) m_stamps.push_back({time, devices[device]});
        }
    }

    Stamp stampAt(qint64 index) {
        require(index >= 0 && index < std::ssize(m_stamps));
        return m_isGood ? m_stamps[index] : Stamp();
    }

    VersionVector vectorOf(const QCborValue& value) {
        require(value.isArray());
        VersionVector vector;
        for (const QCborValue& index : value.toArray())
            vector.add(stampAt(index.toInteger(-1)));
        return vector;
    }

    void readRegisters() {
        require(m_map.value(Registers).isMap());
        const QCborMap registers = m_map.value(Registers).toMap();
        for (const auto& [property, value] : registers) {
            const QCborArray parts = value.toArray();
            require(property.isString() && (parts.size() == 2 || parts.size() == 3));
            if (!m_isGood) return;
            Register& entry = m_state.registers[property.toString()];
            entry.stamp = stampAt(parts.at(0).toInteger(-1));
            entry.value = parts.at(1);
            if (parts.size() == 3) entry.seen = vectorOf(parts.at(2));
        }
    }

    void readSets() {
        require(m_map.value(Sets).isMap());
        const QCborMap sets = m_map.value(Sets).toMap();
        for (const auto& [relationship, value] : sets) {
            require(relationship.isString() && value.isMap());
            const QCborMap elements = value.toMap();
            for (const auto& [target, element] : elements) {
                if (!m_isGood) return;
                const qint64 number = element.toInteger(-1);
                require(number >= 0);
                const QUuid id = idOf(target);
                m_state.sets[relationship.toString()][id] = {stampAt(number / 2), number % 2 == 1};
            }
        }
    }

    void readUnknown() {
        std::map<QCborValue, QCborValue> unknown;
        for (const auto& [key, value] : m_map)
            if (!key.isInteger() || key.toInteger() < 0 || key.toInteger() >= KeyCount) unknown[key] = value;
        for (const auto& [key, value] : unknown)
            m_state.unknown.insert(key, value);
    }

    const QCborMap& m_map;
    ObjectState m_state;
    std::vector<Stamp> m_stamps;
    bool m_isGood = true;
};

constexpr char textKind = 't';
constexpr char bytesKind = 'b';

QByteArray hashOf(const QByteArray& content) {
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

} // namespace

EncodedState encodeState(const ObjectState& state) {
    return StateWriter(state).write();
}

std::optional<ObjectState> decodeState(const QByteArray& payload) {
    if (payload.size() > largestPayload) return std::nullopt;
    QCborParserError error;
    const QCborValue value = QCborValue::fromCbor(payload, &error);
    if (error.error != QCborError::NoError || error.offset != payload.size() || !value.isMap())
        return std::nullopt;
    return StateReader(value.toMap()).read();
}

std::optional<QByteArray> referredAsset(const QCborValue& value) {
    if (!value.isTag() || value.tag() != assetTag) return std::nullopt;
    return value.taggedValue().toByteArray();
}

CloudAsset assetOf(const QCborValue& value) {
    const QByteArray content =
        value.isString() ? textKind + value.toString().toUtf8() : bytesKind + value.toByteArray();
    return {hashOf(content), qCompress(content)};
}

std::optional<QCborValue> valueOf(const CloudAsset& asset) {
    // qCompress() puts the size in front, and qUncompress() believes it.
    if (asset.content.size() < 4 || qFromBigEndian<quint32>(asset.content.data()) > largestAsset)
        return std::nullopt;
    const QByteArray content = qUncompress(asset.content);
    if (content.isEmpty() || hashOf(content) != asset.hash) return std::nullopt;
    const QByteArray value = content.mid(1);
    return content.front() == textKind ? QCborValue(QString::fromUtf8(value)) : QCborValue(value);
}

} // namespace platform
