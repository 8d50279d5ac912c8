#include "platform/mirror/tests/Simulation.h"

#include "platform/mirror/RecordCodec.h"
#include "platform/mirror/tests/Connection.h"

#include <algorithm>

namespace simulation {

using namespace platform;

namespace {

constexpr WallTime hour = 3'600'000;
constexpr WallTime day = 24 * hour;
constexpr std::size_t mostDevices = 6;
constexpr int mostDepth = 2;
constexpr int mostRounds = 60;

const QString zone = QStringLiteral("library");

// A segment of the text's note, with all its writes at the text's own stamp.
std::optional<std::pair<QUuid, ObjectState>> conflictCopy(const DisplacedText& text) {
    const QString owner = QStringLiteral("note");
    ObjectState copy;
    copy.entity = QStringLiteral("Segment");
    const auto whole = text.state.registers.find(owner);
    copy.write(owner, text.stamp,
               whole == text.state.registers.end() ? QCborValue(text.object.toRfc4122())
                                                   : *whole->second.value);
    copy.write(QStringLiteral("copyOf"), text.stamp, QCborValue(text.object.toRfc4122()));
    copy.writeText(QStringLiteral("text"), text.stamp, text.value);
    return std::pair(conflictCopyId(text), copy);
}

// What two devices must agree on, byte by byte.
std::map<QString, QByteArray> dumpOf(const Storage& storage) {
    std::map<QString, QByteArray> dump;
    const auto shown = storage.shown();
    for (const auto& [id, row] : storage.rows) {
        const auto encoded = encodeState(row.object.state);
        dump[id.toString(QUuid::WithoutBraces)] = encoded.payload + (shown.contains(id) ? "shown" : "hidden");
    }
    return dump;
}

std::string difference(const std::map<QString, QByteArray>& a, const std::map<QString, QByteArray>& b) {
    for (const auto& [name, bytes] : a)
        if (const auto other = b.find(name); other == b.end())
            return name.toStdString() + " is missing";
        else if (other->second != bytes)
            return name.toStdString() + ": " + bytes.toHex().toStdString() + " against " +
                   other->second.toHex().toStdString();
    return "there is more";
}

} // namespace

Simulation::Simulation(std::uint64_t seed)
    : m_random(seed)
    , m_editor(m_random, m_oracle) {
    planSeed();
    for (int count = 2 + m_random.below(4); count > 0; --count)
        addDevice(nullptr);
}

Simulation::~Simulation() = default;

void Simulation::planSeed() {
    const auto some = [this](int most) { return m_random.below(3) == 0 ? 0 : m_random.below(most); };
    m_plan.crashes = some(15);
    m_plan.failures = some(60);
    m_plan.delays = some(80);
    m_plan.interruptions = some(400);
    m_plan.hasRestores = m_random.below(3) == 0;
    m_plan.hasClones = !m_plan.hasRestores && m_random.below(3) == 0;
    m_plan.hasAbsences = !m_plan.hasClones && m_random.below(2) == 0;
    m_plan.hasSkew = m_random.below(2) == 0;
    m_policy.conflictCopy = conflictCopy;
    m_policy.pageLimit = 1 + m_random.below(12);
    m_policy.pushLimit = 1 + m_random.below(8);
    m_policy.pushBytes = 200 + m_random.below(100'000);
    m_policy.reportInterval = 0;
    m_policy.collectionInterval = m_random.below(2) == 0 ? 0 : 1000 * day;
    m_policy.tombstoneAge = m_random.below(2) * 2 * day;
}

// Or a copy of a device, under its name.
void Simulation::addDevice(const Storage* original) {
    auto& device = *m_devices.emplace_back(std::make_unique<Device>());
    device.version = m_random.below(2) == 0 ? Version::Current : Version::Next;
    if (m_plan.hasSkew) device.skew = (m_random.below(20) - 10) * day;
    device.storage.status.device = m_random.id();
    if (original) device.storage.copyFrom(*original);
    device.storage.onStep = [this] { mayCrash(); };
    device.connection = std::make_unique<Connection>(*this, device);
    start(device);
}

// What both have not sent yet has one name on either and may come back when the other deletes it.
void Simulation::addClone(const Device& original) {
    m_hasOldThings = true; // nobody waits for it until it has a name of its own
    m_hasSharedChanges = m_hasSharedChanges ||
                         std::ranges::any_of(original.storage.rows,
                                             [](const auto& row) { return row.second.object.change != 0; });
    addDevice(&original.storage);
}

void Simulation::start(Device& device) {
    device.mirror = std::make_unique<Mirror>(
        *device.connection, device.storage, m_policy, zone, [this, &device] { return wallOf(device); },
        [this] { return m_random.id(); });
}

std::optional<std::string> Simulation::run() {
    for (int steps = 40 + m_random.below(80); steps > 0; --steps)
        act();
    return comeToRest();
}

void Simulation::act() {
    m_now += m_random.below(2) == 0 ? m_random.below(20) : m_random.below(static_cast<int>(hour));
    Device& device = *m_devices[m_random.below(static_cast<int>(m_devices.size()))];
    const int choice = m_random.below(100);
    if (choice < 45)
        m_editor.edit(device.storage, wallOf(device), device.version);
    else if (choice < 80)
        trySync(device);
    else if (choice < 85)
        device.isConnected = !device.isConnected;
    else if (choice < 87 && m_plan.hasSkew)
        device.skew = (m_random.below(20) - 10) * day;
    else if (choice < 89 && m_plan.hasClones && m_devices.size() < mostDevices)
        addClone(device);
    else if (choice < 90 && m_plan.hasAbsences)
        beAbsent();
    else
        actOnServer();
}

void Simulation::actOnServer() {
    const int choice = m_random.below(10);
    if (choice < 4)
        m_backups.push_back(m_server);
    else if (choice < 7)
        deliverDelayed();
    else if (choice < 8)
        m_storm = m_random.below(10);
    else if (m_plan.hasRestores)
        restore();
}

void Simulation::restore() {
    m_hasOldThings = true;
    // A device whose push was taken back without its knowledge takes a new name, and sends again what others
    // have under the old one.
    m_hasSharedChanges = m_hasSharedChanges || std::ranges::any_of(m_devices, [](const auto& device) {
                             return device->isSyncing || !device->storage.status.unconfirmedTags.empty();
                         });
    if (!m_backups.empty() && m_random.below(4) != 0) {
        m_backups.resize(1 + m_random.below(static_cast<int>(m_backups.size())));
        m_server = m_backups.back();
    } else {
        std::swap(m_server, m_foreign);
        m_backups.clear();
    }
}

// The others go on, and do not wait for the one for ever.
void Simulation::beAbsent() {
    if (m_depth > 0) return;
    m_hasOldThings = true;
    const auto absent = m_random.below(static_cast<int>(m_devices.size()));
    m_devices[absent]->isConnected = false;
    for (int months = 0; months < 4; ++months) {
        m_now += 30 * day;
        for (const auto& device : m_devices) {
            if (device.get() != m_devices[absent].get()) trySync(*device);
            if (m_random.below(4) == 0) m_editor.edit(device->storage, wallOf(*device), device->version);
        }
    }
}

void Simulation::trySync(Device& device) {
    if (device.isSyncing) return;
    device.isSyncing = true;
    try {
        std::ignore = device.mirror->sync();
    } catch (const Crash&) {
        start(device);
    }
    device.isSyncing = false;
}

void Simulation::interrupt() {
    if (m_isQuiet || m_depth >= mostDepth) return;
    ++m_depth;
    while (m_random.perMille(m_plan.interruptions))
        act();
    --m_depth;
}

void Simulation::mayCrash() {
    if (m_random.perMille(m_plan.crashes)) throw Crash();
}

void Simulation::deliverDelayed() {
    if (m_delayed.empty()) return;
    const int chosen = m_random.below(static_cast<int>(m_delayed.size()));
    pushTo(m_delayed[chosen]);
    if (m_random.below(3) != 0) m_delayed.erase(m_delayed.begin() + chosen);
}

PushResult Simulation::pushTo(const DelayedPush& delayed) {
    const PushResult result = m_server.push(delayed.push, delayed.edits, m_now);
    if (result.outcome == PushOutcome::Committed && !delayed.push.collected.empty()) {
        m_hasCollected = true;
        m_backups.clear();
    }
    return result;
}

std::map<QString, Edits> Simulation::editsOf(const Device& device, const ZonePush& push) const {
    std::map<QString, Edits> edits;
    for (const ZoneRecord& record : push.records)
        edits[record.name] = device.storage.rows.at(QUuid::fromString(record.name)).edits;
    return edits;
}

std::optional<std::string> Simulation::comeToRest() {
    m_isQuiet = true;
    m_plan = {};
    m_storm = 0;
    m_delayed.clear();
    for (const auto& device : m_devices)
        device->isConnected = true;
    for (int rounds = 0; rounds < mostRounds; ++rounds) {
        const qint64 before = m_server.revision;
        if (syncEverybody() && m_server.revision == before) return compare();
    }
    return "does not come to rest";
}

// Whether nobody has more to do.
bool Simulation::syncEverybody() {
    return std::ranges::count_if(m_devices, [](const auto& device) {
               const auto result = device->mirror->sync();
               return !result || result->hasMore || result->hasChanged;
           }) == 0;
}

std::optional<std::string> Simulation::compare() {
    const Storage& first = m_devices.front()->storage;
    const auto expected = dumpOf(first);
    for (const auto& device : m_devices)
        if (const auto dump = dumpOf(device->storage); dump != expected)
            return "two devices differ: " + difference(expected, dump) + ", " + difference(dump, expected);
    const auto shown = first.shown();
    std::map<QString, QByteArray> kept;
    for (const auto& [name, row] : m_server.rows)
        kept[name] = row.record.payload + (shown.contains(QUuid::fromString(name)) ? "shown" : "hidden");
    if (kept != expected)
        return "the server differs: " + difference(expected, kept) + ", " + difference(kept, expected);
    const bool isStrict = !(m_hasCollected && m_hasOldThings) && !m_hasSharedChanges;
    return m_oracle.check(first.states(), shown,
                          isStrict ? Oracle::Deletions::Hold : Oracle::Deletions::MayBeForgotten);
}

} // namespace simulation
