// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxMicrophone.h"

#include "base/AtomicFile.h"
#include "platform/linux/PulseLibrary.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <string_view>

namespace orrinvale
{

using namespace std::chrono_literals;
namespace fs = std::filesystem;

namespace
{

constexpr auto firstAnswer = 200ms;
constexpr auto patience = 60s;

// Volume controls record too, to show a level.
constexpr std::array<std::string_view, 4> volumeControls{"org.gnome.VolumeControl", "org.PulseAudio.pavucontrol",
                                                         "org.kde.kmixd", "org.kde.plasma-pa"};

bool isRecording(const PulseLibrary& pulse, const pa_source_output_info& output)
{
    const auto property = [&](const char* name) {
        const auto* value = pulse.proplist_gets(output.proplist, name);
        return std::string_view(value ? value : "");
    };
    const auto application = property(PA_PROP_APPLICATION_ID);
    const auto isMeter = property("stream.monitor") == "true" ||
                         (output.resample_method && std::string_view(output.resample_method) == "peaks");
    const auto isControl = std::find(volumeControls.begin(), volumeControls.end(), application) != volumeControls.end();
    return !output.corked && output.client != PA_INVALID_INDEX && !isMeter && !isControl;
}

// Without a sound server: a capture stream of a sound card that runs.
bool isAnyCardCapturing(const fs::path& folder)
{
    std::error_code error;
    for (fs::recursive_directory_iterator each(folder, fs::directory_options::skip_permission_denied, error), end;
         !error && each != end; each.increment(error)) {
        const auto path = each->path().string();
        const auto isCapture =
            path.ends_with("/status") && path.find("/pcm") != path.npos && path.find("c/sub") != path.npos;
        if (isCapture && readWholeFile(path).value_or("").find("RUNNING") != std::string::npos)
            return true;
    }
    return false;
}

} // namespace

// One connection. libpulse runs a thread of its own, which sleeps while nothing changes; `m_mutex` guards what it
// writes.
class LinuxMicrophone::Server
{
public:
    explicit Server(const PulseLibrary& pulse) : m_pulse(pulse), m_loop(m_pulse.threaded_mainloop_new())
    {
        m_context = m_pulse.context_new(m_pulse.threaded_mainloop_get_api(m_loop), "orrinvale");
        m_pulse.context_set_state_callback(
            m_context, [](pa_context*, void* self) { of(self).stateChanged(); }, this);
        m_pulse.context_set_subscribe_callback(
            m_context, [](pa_context*, pa_subscription_event_type_t, std::uint32_t, void* self) { of(self).ask(); },
            this);
        if (m_pulse.context_connect(m_context, nullptr, pa_context_flags(PA_CONTEXT_NOAUTOSPAWN), nullptr) < 0)
            fail();
        m_pulse.threaded_mainloop_start(m_loop);
    }

    ~Server()
    {
        m_pulse.threaded_mainloop_stop(m_loop);
        m_pulse.context_disconnect(m_context);
        m_pulse.context_unref(m_context);
        m_pulse.threaded_mainloop_free(m_loop);
    }

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
    static Server& of(void* self) { return *static_cast<Server*>(self); }

    void fail()
    {
        const std::lock_guard lock(m_mutex);
        m_failed = true;
        m_inUse.reset();
        m_known.notify_all();
    }

    void stateChanged()
    {
        const auto state = m_pulse.context_get_state(m_context);
        if (!PA_CONTEXT_IS_GOOD(state))
            return fail();
        if (state != PA_CONTEXT_READY)
            return;
        const auto mask = pa_subscription_mask_t(PA_SUBSCRIPTION_MASK_SOURCE | PA_SUBSCRIPTION_MASK_SOURCE_OUTPUT);
        forget(m_pulse.context_subscribe(m_context, mask, nullptr, nullptr));
        ask();
    }

    // First the microphones, then who records from one. A change while that goes on begins it again.
    void ask()
    {
        if (m_asking) {
            m_askAgain = true;
            return;
        }
        m_asking = true;
        m_askAgain = false;
        m_isMicrophone.clear();
        m_found = false;
        forget(m_pulse.context_get_source_info_list(
            m_context, [](pa_context*, const pa_source_info* info, int end, void* self) { of(self).source(info, end); },
            this));
    }

    void source(const pa_source_info* info, int end)
    {
        if (info)
            m_isMicrophone[info->index] = info->monitor_of_sink == PA_INVALID_INDEX;
        if (end == 0)
            return;
        forget(m_pulse.context_get_source_output_info_list(
            m_context,
            [](pa_context*, const pa_source_output_info* output, int last, void* self) {
                of(self).output(output, last);
            },
            this));
    }

    void output(const pa_source_output_info* info, int end)
    {
        if (info && isRecording(m_pulse, *info) && m_isMicrophone[info->source])
            m_found = true;
        if (end == 0)
            return;
        {
            const std::lock_guard lock(m_mutex);
            m_inUse = m_found;
            m_known.notify_all();
        }
        m_asking = false;
        if (m_askAgain)
            ask();
    }

    void forget(pa_operation* operation)
    {
        if (operation)
            m_pulse.operation_unref(operation);
    }

    const PulseLibrary& m_pulse;
    pa_threaded_mainloop* m_loop;
    pa_context* m_context;
    bool m_asking = false, m_askAgain = false, m_found = false; // of libpulse's thread, with the next
    std::map<std::uint32_t, bool> m_isMicrophone;               // by source index; a monitor is none
    mutable std::mutex m_mutex;
    std::condition_variable m_known;
    std::optional<bool> m_inUse;
    bool m_failed = false;
};

LinuxMicrophone::LinuxMicrophone(MainQueue& queue, std::string asoundFolder)
    : m_queue(queue), m_asoundFolder(std::move(asoundFolder))
{
}

LinuxMicrophone::~LinuxMicrophone() = default;

bool LinuxMicrophone::isInUse()
{
    const auto* pulse = PulseLibrary::load();
    if (!pulse)
        return isAnyCardCapturing(m_asoundFolder);
    m_letGo = m_queue.after(patience, [this] { m_server.reset(); });
    if (m_server && m_server->hasFailed())
        m_server.reset(); // the server may be back
    const auto isFirstQuestion = !m_server;
    if (isFirstQuestion)
        m_server = std::make_unique<Server>(*pulse);
    const auto answer = m_server->answerWithin(isFirstQuestion ? firstAnswer : 0ms);
    return m_server->hasFailed() ? isAnyCardCapturing(m_asoundFolder) : answer.value_or(false);
}

} // namespace orrinvale
