// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ProcessDetector.h"

#include "platform/MediaDevices.h"
#include "platform/Platform.h"
#include "platform/RunningApplications.h"

#include "base/Clock.h"

#include <algorithm>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr auto evaluationInterval = 10s;

const RunningApplication* find(const std::vector<RunningApplication>& applications, const std::string& bundleID)
{
    const auto found = std::find_if(applications.begin(), applications.end(),
                                    [&](const auto& each) { return each.isKnownAs(bundleID); });
    return found == applications.end() ? nullptr : &*found;
}

WakeSignal processSignal(const WatchedProcess& entry, const RunningApplication& application, Instant now)
{
    return {.source = SignalSource::process,
            .detail = entry.label,
            .score = entry.score,
            .timestamp = now,
            .appBundleID = application.bundleIdentifier.value_or(entry.bundleID), // usage and icons go by its own
            .appName = application.localizedName.value_or(entry.bundleID)};
}

} // namespace

const std::vector<WatchedProcess>& ProcessDetector::builtinProcesses()
{
    static const std::vector<WatchedProcess> table{
        {"us.zoom.xos", "Zoom call in progress", 5, true},
        {"com.microsoft.teams2", "Teams call in progress", 5, true},
        {"com.microsoft.teams", "Teams call in progress", 5, true},
        {"com.apple.FaceTime", "FaceTime call in progress", 5, true},
        {"com.loom.desktop", "Loom recording", 5, true},
        {"com.adobe.Premiere Pro", "Premiere Pro rendering", 4, false},
        {"com.adobe.AfterEffects", "After Effects rendering", 4, false},
        {"com.apple.FinalCut", "Final Cut Pro exporting", 4, false},
        {"com.blackmagic-design.DaVinci-Resolve", "DaVinci Resolve active", 4, false},
        {"com.apple.compressor", "Compressor encoding", 5, false},
        {"com.handbrake.HandBrake", "HandBrake encoding", 5, false},
        {"org.ffmpeg.FFmpegKit", "FFmpeg transcoding", 4, false},
        {"com.jetbrains.intellij", "IntelliJ running build", 3, false},
        {"com.jetbrains.CLion", "CLion running build", 3, false},
        {"com.jetbrains.AppCode", "AppCode running build", 3, false},
        {"com.dropbox.client2", "Dropbox syncing", 3, false},
        {"com.apple.CloudDocs.iCloudDriveFileProvider", "iCloud syncing", 2, false},
        {"com.backblaze.backup.launcher", "Backblaze backup running", 4, false},
        {"com.carboncopycloner.4", "Carbon Copy Cloner cloning", 5, false},
        {"com.bombich.ccc", "Carbon Copy Cloner cloning", 5, false},
        {"net.freemacsoft.TimeMachineStatus", "Time Machine backup", 4, false},
        {"org.m0k.transmission", "Transmission active", 4, false},
        {"com.bittorrent.uTorrent", "uTorrent active", 4, false},
        {"org.qbittorrent.qbittorrent", "qBittorrent active", 4, false},
        {"com.apple.Terminal", "Terminal session active", 1, false},
        {"com.googlecode.iterm2", "iTerm2 session active", 1, false},
        {"com.github.wez.wezterm", "WezTerm session active", 1, false},
    };
    return table;
}

ProcessDetector::ProcessDetector(const Platform& platform)
    : m_applications(platform.runningApplications), m_media(platform.mediaDevices), m_queue(platform.mainQueue),
      m_clock(platform.clock)
{
}

void ProcessDetector::start()
{
    evaluate();
    m_timer = m_queue.every(evaluationInterval, [this] {
        m_applications.refresh();
        evaluate();
    });
    m_changes = m_applications.observeChanges([this] { appsChanged(); });
    m_mediaChanges = m_media.observeChanges([this] { evaluate(); });
}

void ProcessDetector::stop()
{
    m_timer.cancel();
    m_changes.cancel();
    m_mediaChanges.cancel();
    m_lifetime.renew();
    signals.set({});
}

void ProcessDetector::updateCustomProcesses(const std::vector<CustomProcess>& list)
{
    m_customProcesses.clear();
    for (const auto& process : list)
        m_customProcesses.push_back({process.bundleID, process.label, process.score, false});
    evaluate();
}

void ProcessDetector::evaluate()
{
    auto watched = builtinProcesses();
    watched.insert(watched.end(), m_customProcesses.begin(), m_customProcesses.end());
    const auto mediaActive = isMediaActiveFor(watched);
    const auto now = m_clock.now();
    WakeSignals found;
    for (const auto& entry : watched) {
        const auto* application = find(m_applications.applications(), entry.bundleID);
        if (application && (mediaActive || !entry.requiresMediaActivity))
            found.push_back(processSignal(entry, *application, now));
    }
    publishLater(std::move(found));
}

bool ProcessDetector::isMediaActiveFor(const std::vector<WatchedProcess>& watched) const
{
    const auto asks = std::any_of(watched.begin(), watched.end(), [&](const auto& entry) {
        return entry.requiresMediaActivity && find(m_applications.applications(), entry.bundleID);
    });
    return asks && (m_media.isCameraInUse() || m_media.isMicrophoneInUse());
}

void ProcessDetector::publishLater(WakeSignals found)
{
    m_queue.post(m_lifetime.unlessGone([this, found = std::move(found)] { signals.set(found); }));
}

} // namespace orrinvale
