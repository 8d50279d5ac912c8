#pragma once

#include "platform/mirror/Mirror.h"
#include "platform/mirror/tests/Editor.h"

#include <memory>

namespace simulation {

// The process that the mirror runs in ends here.
struct Crash {};

class Connection;

struct Device {
    Storage storage;
    Version version = Version::Current;
    platform::WallTime skew = 0;
    bool isConnected = true;
    bool isSyncing = false;
    std::unique_ptr<Connection> connection;
    std::unique_ptr<platform::Mirror> mirror;
};

// Devices, a server, users and accidents, all from one seed: it says whether everything was there in the end.
//
// Whatever can happen happens at the boundaries of the mirror's calls: crashes before and after, replies lost
// or held up, and there also run the edits and syncs of all other devices, so that every interleaving is met.
class Simulation {
public:
    explicit Simulation(std::uint64_t seed);
    ~Simulation();

    // What went wrong, or nothing.
    std::optional<std::string> run();

private:
    friend class Connection;

    // What this seed has in store.
    struct Plan {
        int crashes = 0; // in a thousand boundaries
        int failures = 0;
        int delays = 0;
        int interruptions = 0;
        bool hasRestores = false;
        bool hasClones = false;
        bool hasAbsences = false;
        bool hasSkew = false;
    };

    struct DelayedPush {
        platform::ZonePush push;
        std::map<QString, Edits> edits;
    };

    void planSeed();
    void addDevice(const Storage* original);
    void addClone(const Device& original);
    void start(Device& device);
    void act();
    void actOnServer();
    void trySync(Device& device);
    void interrupt();
    void mayCrash();
    void deliverDelayed();
    platform::PushResult pushTo(const DelayedPush& delayed);
    void restore();
    void beAbsent();
    std::optional<std::string> comeToRest();
    std::optional<std::string> compare();
    bool syncEverybody();

    platform::WallTime wallOf(const Device& device) const { return m_now + device.skew; }

    std::map<QString, Edits> editsOf(const Device& device, const platform::ZonePush& push) const;

    Random m_random;
    Oracle m_oracle;
    Editor m_editor;
    Plan m_plan;
    platform::MirrorPolicy m_policy;
    platform::WallTime m_now = 1'700'000'000'000;
    Server m_server;
    Server m_foreign;
    std::vector<Server> m_backups; // of this history, oldest first
    std::vector<DelayedPush> m_delayed;
    std::vector<std::unique_ptr<Device>> m_devices;
    int m_depth = 0;
    int m_storm = 0; // calls that fail from now on
    bool m_isQuiet = false;
    bool m_hasSharedChanges = false; // one change may be known under two names
    bool m_hasCollected = false;
    bool m_hasOldThings = false; // an old server, a long absent device or a copy came back
};

} // namespace simulation
