// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/PipeWireCameras.h"

#include "platform/linux/PipeWireLibrary.h"

#include <algorithm>
#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <string_view>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr auto firstAnswer = 200ms;
constexpr auto patience = 60s;
constexpr int roundTrips = 2; // which nodes there are, and then what they do

bool isCamera(const char* type, const spa_dict* properties)
{
    const auto* role = properties ? spa_dict_lookup(properties, PW_KEY_MEDIA_ROLE) : nullptr;
    return std::string_view(type) == PW_TYPE_INTERFACE_Node && role && std::string_view(role) == "Camera";
}

} // namespace

// libpipewire runs a thread of its own, which sleeps while nothing changes and calls everything below but the
// constructor, the destructor and the questions; `m_mutex` guards what it writes.
class PipeWireCameras::Connection
{
public:
    explicit Connection(const PipeWireLibrary& pipewire);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    bool hasFailed() const
    {
        const std::lock_guard lock(m_mutex);
        return m_failed;
    }
    // nullopt while nothing is known.
    std::optional<bool> answerWithin(std::chrono::milliseconds bound)
    {
        std::unique_lock lock(m_mutex);
        m_known.wait_for(lock, bound, [this] { return m_inUse || m_failed; });
        return m_inUse;
    }

private:
    struct Node {
        Connection& owner;
        pw_proxy* proxy;
        spa_hook listener{};
        bool isRunning = false;
    };

    static Connection& of(void* self) { return *static_cast<Connection*>(self); }
    bool connect();
    void listen();
    void fail();
    void appeared(std::uint32_t id, const char* type, const spa_dict* properties);
    void disappeared(std::uint32_t id);
    void roundTripEnded();
    void publish();

    const PipeWireLibrary& m_pipewire;
    pw_thread_loop* m_loop;
    pw_context* m_context = nullptr;
    pw_core* m_core = nullptr;
    pw_registry* m_registry = nullptr;
    spa_hook m_coreListener{};
    spa_hook m_registryListener{};
    std::map<std::uint32_t, Node> m_nodes; // of the loop's thread, with the next
    int m_roundTripsLeft = roundTrips;
    mutable std::mutex m_mutex;
    std::condition_variable m_known;
    std::optional<bool> m_inUse;
    bool m_failed = false;
};

PipeWireCameras::Connection::Connection(const PipeWireLibrary& pipewire)
    : m_pipewire(pipewire), m_loop(pipewire.thread_loop_new("cameras", nullptr))
{
    const auto isConnected = m_loop && connect();
    if (isConnected)
        listen();
    if (!isConnected || m_pipewire.thread_loop_start(m_loop) != 0)
        fail();
}

PipeWireCameras::Connection::~Connection()
{
    if (m_loop)
        m_pipewire.thread_loop_stop(m_loop);
    for (auto& [id, node] : m_nodes) {
        spa_hook_remove(&node.listener);
        m_pipewire.proxy_destroy(node.proxy);
    }
    if (m_registry) {
        spa_hook_remove(&m_registryListener);
        m_pipewire.proxy_destroy(reinterpret_cast<pw_proxy*>(m_registry));
        spa_hook_remove(&m_coreListener);
    }
    if (m_core)
        m_pipewire.core_disconnect(m_core);
    if (m_context)
        m_pipewire.context_destroy(m_context);
    if (m_loop)
        m_pipewire.thread_loop_destroy(m_loop);
}

// The protocol alone: what a usual client loads besides asks the session for real-time priority.
bool PipeWireCameras::Connection::connect()
{
    auto* properties = m_pipewire.properties_new(PW_KEY_CONFIG_NAME, "null", nullptr);
    m_context = m_pipewire.context_new(m_pipewire.thread_loop_get_loop(m_loop), properties, 0);
    if (!m_context ||
        !m_pipewire.context_load_module(m_context, "libpipewire-module-protocol-native", nullptr, nullptr))
        return false;
    m_core = m_pipewire.context_connect(m_context, nullptr, 0);
    m_registry = m_core ? pw_core_get_registry(m_core, PW_VERSION_REGISTRY, 0) : nullptr;
    return m_registry;
}

void PipeWireCameras::Connection::listen()
{
    static const auto coreEvents = [] {
        pw_core_events events{};
        events.version = PW_VERSION_CORE_EVENTS;
        events.done = [](void* self, std::uint32_t, int) { of(self).roundTripEnded(); };
        events.error = [](void* self, std::uint32_t id, int, int, const char*) {
            if (id == PW_ID_CORE)
                of(self).fail();
        };
        return events;
    }();
    static const auto registryEvents = [] {
        pw_registry_events events{};
        events.version = PW_VERSION_REGISTRY_EVENTS;
        events.global = [](void* self, std::uint32_t id, std::uint32_t, const char* type, std::uint32_t,
                           const spa_dict* properties) { of(self).appeared(id, type, properties); };
        events.global_remove = [](void* self, std::uint32_t id) { of(self).disappeared(id); };
        return events;
    }();
    pw_core_add_listener(m_core, &m_coreListener, &coreEvents, this);
    pw_registry_add_listener(m_registry, &m_registryListener, &registryEvents, this);
    pw_core_sync(m_core, PW_ID_CORE, 0);
}

void PipeWireCameras::Connection::fail()
{
    const std::lock_guard lock(m_mutex);
    m_failed = true;
    m_inUse.reset();
    m_known.notify_all();
}

void PipeWireCameras::Connection::appeared(std::uint32_t id, const char* type, const spa_dict* properties)
{
    static const auto nodeEvents = [] {
        pw_node_events events{};
        events.version = PW_VERSION_NODE_EVENTS;
        events.info = [](void* self, const pw_node_info* info) {
            auto& node = *static_cast<Node*>(self);
            node.isRunning = info->state == PW_NODE_STATE_RUNNING;
            node.owner.publish();
        };
        return events;
    }();
    if (!isCamera(type, properties))
        return;
    auto* proxy = static_cast<pw_proxy*>(pw_registry_bind(m_registry, id, type, PW_VERSION_NODE, 0));
    if (!proxy)
        return;
    auto& node = m_nodes.try_emplace(id, Node{*this, proxy}).first->second;
    pw_node_add_listener(reinterpret_cast<pw_node*>(proxy), &node.listener, &nodeEvents, &node);
}

void PipeWireCameras::Connection::disappeared(std::uint32_t id)
{
    const auto node = m_nodes.find(id);
    if (node == m_nodes.end())
        return;
    spa_hook_remove(&node->second.listener);
    m_pipewire.proxy_destroy(node->second.proxy);
    m_nodes.erase(node);
    publish();
}

void PipeWireCameras::Connection::roundTripEnded()
{
    if (m_roundTripsLeft > 0 && --m_roundTripsLeft > 0)
        pw_core_sync(m_core, PW_ID_CORE, 0);
    publish();
}

void PipeWireCameras::Connection::publish()
{
    if (m_roundTripsLeft > 0)
        return; // not all are known
    const auto isRunning = [](const auto& each) { return each.second.isRunning; };
    const std::lock_guard lock(m_mutex);
    m_inUse = std::any_of(m_nodes.begin(), m_nodes.end(), isRunning);
    m_known.notify_all();
}

PipeWireCameras::PipeWireCameras(MainQueue& queue) : m_queue(queue) {}

PipeWireCameras::~PipeWireCameras() = default;

bool PipeWireCameras::isAnyInUse()
{
    const auto* pipewire = PipeWireLibrary::load();
    if (!pipewire)
        return false;
    m_letGo = m_queue.after(patience, [this] { m_connection.reset(); });
    if (m_connection && m_connection->hasFailed())
        m_connection.reset(); // the server may be back
    const auto isFirstQuestion = !m_connection;
    if (isFirstQuestion)
        m_connection = std::make_unique<Connection>(*pipewire);
    return m_connection->answerWithin(isFirstQuestion ? firstAnswer : 0ms).value_or(false);
}

} // namespace orrinvale
