// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxCPUCounters.h"

#include <algorithm>
#include <cerrno>
#include <charconv>

#include <fcntl.h>
#include <unistd.h>

namespace orrinvale
{

namespace
{

// Two seconds of the kernel's USER_HZ. What waits for its old height that long still grows for most of the next sample,
// so that a fall alone never looks like two busy samples in a row.
constexpr std::uint64_t largestFall = 200;
constexpr std::size_t mostProcessors = 8192; // NR_CPUS of any kernel that is built
constexpr std::size_t initialBuffer = 8192;

std::optional<std::uint64_t> takeNumber(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    std::uint64_t value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{})
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    return value;
}

} // namespace

bool LinuxCPUCounters::Counter::hasRestarted(const Ticks& reading) const
{
    for (std::size_t i = 0; i < reading.size(); ++i) {
        if (reading[i] < (*highest)[i] && (*highest)[i] - reading[i] > largestFall)
            return true;
    }
    return false;
}

void LinuxCPUCounters::Counter::update(const Ticks& reading)
{
    if (!highest || hasRestarted(reading)) {
        highest = reading;
        ticks = {};
        return;
    }
    Ticks growth{};
    for (std::size_t i = 0; i < reading.size(); ++i) {
        growth[i] = std::max((*highest)[i], reading[i]) - (*highest)[i];
        (*highest)[i] += growth[i];
    }
    ticks.grow(growth);
}

LinuxCPUCounters::LinuxCPUCounters(const std::string& statFile)
    : m_file(::open(statFile.c_str(), O_RDONLY | O_CLOEXEC)), m_openError(m_file.isOpen() ? 0 : errno)
{
    m_text.resize(initialBuffer);
    read();
}

CPUCounters::Host LinuxCPUCounters::host()
{
    if (const auto error = read(); error != 0)
        return {error, {}};
    const auto& [user, system, idle, nice] = m_host.ticks.value();
    return {0, {user, system, idle, nice}};
}

std::optional<std::vector<std::int32_t>> LinuxCPUCounters::processors()
{
    if (m_processors.empty())
        return std::nullopt;
    std::vector<std::int32_t> all;
    all.reserve(m_processors.size() * 4);
    for (const auto& processor : m_processors) {
        for (const auto ticks : processor.ticks.value())
            all.push_back(static_cast<std::int32_t>(ticks));
    }
    return all;
}

int LinuxCPUCounters::read()
{
    if (!m_file.isOpen())
        return m_openError;
    for (;;) {
        const auto length = ::pread(m_file.get(), m_text.data(), m_text.size(), 0);
        if (length < 0)
            return errno;
        if (static_cast<std::size_t>(length) < m_text.size()) {
            parse(std::string_view(m_text.data(), static_cast<std::size_t>(length)));
            return m_host.highest ? 0 : EINVAL;
        }
        m_text.resize(m_text.size() * 2);
    }
}

void LinuxCPUCounters::parse(std::string_view text)
{
    while (text.starts_with("cpu")) {
        const auto end = std::min(text.find('\n'), text.size() - 1);
        parseLine(text.substr(3, end - 3));
        text.remove_prefix(end + 1);
    }
}

void LinuxCPUCounters::parseLine(std::string_view line)
{
    const auto isHost = line.starts_with(' ');
    const auto number = isHost ? std::optional<std::uint64_t>(0) : takeNumber(line);
    if (!number || *number >= mostProcessors)
        return;
    // user (guest time is inside it), nice, system, idle, iowait, irq, softirq; steal is not our load.
    std::array<std::uint64_t, 7> column{};
    for (auto& value : column) {
        const auto read = takeNumber(line);
        if (!read)
            return;
        value = *read;
    }
    if (!isHost && m_processors.size() <= *number)
        m_processors.resize(*number + 1);
    auto& counter = isHost ? m_host : m_processors[*number];
    counter.update({column[0], column[2] + column[5] + column[6], column[3] + column[4], column[1]});
}

} // namespace orrinvale
