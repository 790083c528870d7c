// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxProcessStatus.h"

#include "base/Text.h"
#include "platform/linux/ProcFolder.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <vector>

#include <fmt/format.h>
#include <unistd.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr auto interval = 1500ms;

// The display server, the compositor, the shell, sound, indexers, package daemons and the like: work of the session,
// not of the user. Names as in /proc/PID/comm, at most 15 bytes.
constexpr std::array<std::string_view, 42> machinery{"Xorg",
                                                     "Xwayland",
                                                     "gnome-shell",
                                                     "kwin_wayland",
                                                     "kwin_x11",
                                                     "plasmashell",
                                                     "sway",
                                                     "Hyprland",
                                                     "mutter",
                                                     "xfwm4",
                                                     "xfce4-panel",
                                                     "cinnamon",
                                                     "mate-panel",
                                                     "marco",
                                                     "openbox",
                                                     "waybar",
                                                     "pipewire",
                                                     "pipewire-pulse",
                                                     "wireplumber",
                                                     "pulseaudio",
                                                     "systemd",
                                                     "systemd-journal",
                                                     "systemd-logind",
                                                     "systemd-oomd",
                                                     "systemd-udevd",
                                                     "systemd-resolve",
                                                     "dbus-daemon",
                                                     "dbus-broker",
                                                     "dbus-broker-lau",
                                                     "packagekitd",
                                                     "unattended-upgr",
                                                     "tracker-miner-f",
                                                     "tracker-extract",
                                                     "baloo_file",
                                                     "baloo_file_extr",
                                                     "kded5",
                                                     "kded6",
                                                     "upowerd",
                                                     "polkitd",
                                                     "ibus-daemon",
                                                     "snapd",
                                                     "orrinvale"};

struct Row {
    std::int32_t pid;
    double percent;
    std::string comm;
};

std::string commandOf(const std::string& procFolder, const Row& row)
{
    auto command = executableOf(procFolder, row.pid).value_or(row.comm);
    command = validUtf8(command);
    std::replace(command.begin(), command.end(), '\n', '?');
    return command;
}

bool isMachinery(const std::string& comm)
{
    return std::find(machinery.begin(), machinery.end(), comm) != machinery.end();
}

} // namespace

std::optional<ProcessReading> readProcesses(const std::string& procFolder)
{
    const auto pids = processIds(procFolder);
    if (!pids)
        return std::nullopt;
    ProcessReading reading;
    for (const auto pid : *pids) {
        if (auto stat = processStat(procFolder, pid); stat && !stat->isKernelThread)
            reading.emplace(std::pair(pid, stat->startTime), ProcessTicks{stat->ticks, std::move(stat->comm)});
    }
    return reading;
}

std::string processTable(const std::string& procFolder, const ProcessReading& first, const ProcessReading& second,
                         std::chrono::duration<double> elapsed)
{
    static const auto ticksPerSecond = static_cast<double>(::sysconf(_SC_CLK_TCK));
    std::vector<Row> rows;
    for (const auto& [key, now] : second) {
        const auto before = first.find(key);
        const auto ticks = now.ticks - (before == first.end() ? 0 : before->second.ticks);
        if (ticks > 0 && !isMachinery(now.comm))
            rows.push_back({key.first, static_cast<double>(ticks) / ticksPerSecond / elapsed.count() * 100, now.comm});
    }
    std::stable_sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) { return a.percent > b.percent; });
    std::string table = "  PID  %CPU COMMAND\n";
    for (const auto& row : rows)
        fmt::format_to(std::back_inserter(table), "{:5} {:5.1f} {}\n", row.pid, row.percent,
                       commandOf(procFolder, row));
    return table;
}

LinuxProcessStatus::LinuxProcessStatus(MainQueue& queue, SerialQueue& background, std::string procFolder)
    : m_queue(queue), m_background(background), m_procFolder(std::move(procFolder))
{
}

void LinuxProcessStatus::prepare()
{
    if (m_isMeasuring)
        return;
    m_isMeasuring = true;
    const auto first = std::make_shared<std::optional<ProcessReading>>();
    const auto begin = std::make_shared<std::chrono::steady_clock::time_point>();
    m_background.post([first, begin, proc = m_procFolder] {
        *begin = std::chrono::steady_clock::now();
        *first = readProcesses(proc);
    });
    m_secondReading = m_background.after(
        interval, [first, begin, proc = m_procFolder, &queue = m_queue,
                   finish = m_lifetime.unlessGone([this](const auto& table) { this->finish(table); })] {
            const auto second = readProcesses(proc);
            const auto elapsed = std::chrono::steady_clock::now() - *begin;
            auto table = *first && second ? std::optional(processTable(proc, **first, *second, elapsed)) : std::nullopt;
            queue.post([finish, table = std::move(table)] { finish(table); });
        });
}

void LinuxProcessStatus::forget()
{
    m_lifetime.renew(); // a measurement under way finds nobody
    m_secondReading.cancel();
    m_isMeasuring = false;
    m_table.reset();
}

void LinuxProcessStatus::finish(const std::optional<std::string>& table)
{
    m_isMeasuring = false;
    if (table)
        m_table = table;
}

} // namespace orrinvale
