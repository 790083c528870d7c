// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/DownloadMonitor.h"

#include "base/ConsoleLine.h"
#include "base/Text.h"
#include "orrinvale/AppSettings.h"
#include "platform/FolderWatcher.h"
#include "platform/Platform.h"

#include <array>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr auto activeWindow = 10s;
constexpr auto pollInterval = 5s;
constexpr std::int64_t downloadScore = 5;

struct PartialExtension {
    std::string_view suffix; // lower case
    std::string_view name;
    std::optional<std::string_view> bundleID;
};

constexpr std::array<PartialExtension, 8> partialExtensions{{
    {".download", "Safari", "com.apple.Safari"},
    {".crdownload", "Chrome", "com.google.Chrome"},
    {".part", "Firefox", "org.mozilla.firefox"},
    {".opdownload", "Opera", "com.operasoftware.Opera"},
    {".aria2", "aria2", std::nullopt},
    {".!qb", "qBittorrent", "org.qbittorrent.qbittorrent"},
    {".dap", "Download Accelerator", std::nullopt},
    {".tmp", "Download", std::nullopt},
}};

const PartialExtension* extensionOf(std::string_view fileName)
{
    const auto lower = asciiLowercase(fileName);
    for (const auto& extension : partialExtensions) {
        if (lower.ends_with(extension.suffix))
            return &extension;
    }
    return nullptr;
}

WakeSignal downloadSignal(const std::string& fileName, const PartialExtension& extension, Instant now)
{
    return {.source = SignalSource::download,
            .detail = "Downloading " + validUtf8(fileName),
            .score = downloadScore,
            .timestamp = now,
            .appBundleID = extension.bundleID ? std::optional(std::string(*extension.bundleID)) : std::nullopt,
            .appName = std::string(extension.name)};
}

} // namespace

WakeSignals activeDownloads(const std::vector<FolderEntry>& entries, Instant now)
{
    WakeSignals found;
    for (const auto& entry : entries) {
        const auto* extension = extensionOf(entry.name);
        // Seconds in floating point: a date at the edge of the clock's range must not wrap around.
        const auto age = Seconds(now.time_since_epoch()) - Seconds(entry.modified.time_since_epoch());
        if (extension && age < activeWindow)
            found.push_back(downloadSignal(entry.name, *extension, now));
    }
    return found;
}

DownloadMonitor::DownloadMonitor(const Platform& platform, AppSettings& settings)
    : m_settings(settings), m_folders(platform.folderWatcher), m_queue(platform.mainQueue),
      m_serialQueues(platform.serialQueues), m_clock(platform.clock)
{
}

void DownloadMonitor::start()
{
    startWatching();
    scan();
    m_pollTimer = m_queue.every(pollInterval, [this] { scan(); });
    m_settingsCancellable = m_settings.downloadsFolderPath.observeOn(
        m_queue, [this](const std::string&) { retarget(); }, Deliver::changesOnly);
}

void DownloadMonitor::stop()
{
    m_dispatchSource.cancel();
    m_pollTimer.cancel();
    m_settingsCancellable.cancel();
    m_lifetime.renew();
    m_scans.reset();
    signals.set({});
}

void DownloadMonitor::retarget()
{
    m_dispatchSource.cancel();
    startWatching();
    scan();
}

void DownloadMonitor::startWatching()
{
    m_lifetime.renew();
    m_scans = m_serialQueues.make("com.orrinvale.downloadmonitor");
    m_isScanning = false;
    const auto finish = m_lifetime.unlessGone([this](Cancellable token) { finishWatching(std::move(token)); });
    m_scans->post([&folders = m_folders, &queue = m_queue, path = m_settings.downloadsFolderPath.get(), finish,
                   change = m_lifetime.unlessGone([this] { scan(); })] {
        const auto onChange = [&queue, change] { queue.post(change); };
        // Shared, since work is copied; nobody takes a token that comes late, and it goes with the work.
        queue.post([finish, token = std::make_shared<Cancellable>(folders.watch(path, onChange))] {
            finish(std::move(*token));
        });
    });
}

void DownloadMonitor::finishWatching(Cancellable token)
{
    m_dispatchSource = std::move(token);
    if (!m_dispatchSource)
        consoleLine("DownloadMonitor", "could not open Downloads directory");
}

void DownloadMonitor::scan()
{
    if (m_isScanning) {
        m_scanAgain = true;
        return;
    }
    m_isScanning = true;
    m_scanAgain = false;
    m_scans->post([&folders = m_folders, &clock = m_clock, &queue = m_queue,
                   path = m_settings.downloadsFolderPath.get(),
                   finish = m_lifetime.unlessGone([this](const auto& found) { finishScan(found); })] {
        const auto entries = folders.entries(path);
        auto found = entries ? std::optional(activeDownloads(*entries, clock.now())) : std::nullopt;
        queue.post([finish, found = std::move(found)] { finish(found); });
    });
}

void DownloadMonitor::finishScan(std::optional<WakeSignals> found)
{
    m_isScanning = false;
    if (found)
        signals.set(std::move(*found));
    if (m_scanAgain)
        scan();
}

} // namespace orrinvale
