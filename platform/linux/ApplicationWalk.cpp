// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/ApplicationWalk.h"

#include "base/Text.h"
#include "platform/linux/ApplicationIdentity.h"
#include "platform/linux/ProcessIdentity.h"
#include "platform/linux/SystemdUnit.h"

#include <set>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr auto youth = 30s;

RunningApplication applicationOf(const DesktopEntry& entry)
{
    RunningApplication application{.bundleIdentifier = entry.id,
                                   .localizedName = entry.name,
                                   .executablePath = std::nullopt,
                                   .activationPolicy =
                                       entry.isRegular ? ActivationPolicy::regular : ActivationPolicy::accessory};
    if (!entry.icon.empty())
        application.iconName = entry.icon;
    return application;
}

RunningApplication applicationWithoutEntry(std::string identifier, std::string name)
{
    return {.bundleIdentifier = std::move(identifier),
            .localizedName = std::move(name),
            .executablePath = std::nullopt,
            .activationPolicy = ActivationPolicy::accessory};
}

void addIdentifier(RunningApplication& application, const std::optional<std::string>& identifier)
{
    if (identifier && !application.isKnownAs(*identifier))
        application.alsoKnownAs.push_back(*identifier);
}

std::optional<RunningApplication> applicationOfExecutable(const std::string& program)
{
    auto identifier = bundleIdentifierOfExecutable(program);
    if (!identifier)
        return std::nullopt;
    return applicationWithoutEntry(std::move(*identifier), validUtf8(program.substr(program.rfind('/') + 1)));
}

} // namespace

ApplicationWalk::ApplicationWalk(std::string procFolder)
    : m_procFolder(std::move(procFolder)), m_index(std::make_shared<const DesktopEntryIndex>())
{
}

std::vector<RunningApplication> ApplicationWalk::walk(std::shared_ptr<const DesktopEntryIndex> index,
                                                      std::chrono::steady_clock::time_point now)
{
    if (std::exchange(m_index, index) != index)
        m_judgement = now;
    if (const auto pids = processIds(m_procFolder)) {
        std::map<Key, Process> seen;
        for (const auto pid : *pids)
            visit(pid, now, seen);
        m_processes = std::move(seen);
        followUnits(now);
    }
    return applications();
}

std::vector<RunningApplication> ApplicationWalk::applications() const
{
    std::vector<RunningApplication> applications;
    std::set<std::string> units, identifiers;
    for (const auto& [key, process] : m_processes) {
        if (process.isKnownByUnit && m_units.at(process.unit).isLeftBehind)
            continue;
        // What an application's own processes start folds into the oldest of the unit, unless its program says
        // otherwise.
        const auto isHelper = process.isKnownByUnit && !units.insert(process.unit).second;
        if (process.application && !isHelper && identifiers.insert(*process.application->bundleIdentifier).second)
            applications.push_back(*process.application);
    }
    return applications;
}

void ApplicationWalk::followUnits(std::chrono::steady_clock::time_point now)
{
    std::map<std::string, Unit> units;
    for (const auto& [key, process] : m_processes) {
        if (process.unit.empty())
            continue;
        auto known = m_units.extract(process.unit);
        if (known)
            units.insert(std::move(known));
        auto& unit = units.try_emplace(process.unit, Unit{key, now, false}).first->second;
        if (m_processes.contains(unit.leader))
            continue;
        if (now - unit.firstSeen < youth)
            unit.leader = key;
        else
            unit.isLeftBehind = true;
    }
    m_units = std::move(units);
}

void ApplicationWalk::visit(std::int32_t pid, std::chrono::steady_clock::time_point now, std::map<Key, Process>& seen)
{
    struct stat owner {
    };
    if (::stat(fmt::format("{}/{}", m_procFolder, pid).c_str(), &owner) != 0 || owner.st_uid != ::getuid())
        return;
    auto stat = processStat(m_procFolder, pid);
    if (!stat || stat->isKernelThread)
        return;
    const Key key{stat->startTime, pid};
    auto known = m_processes.extract(key);
    Process process = known ? std::move(known.mapped()) : Process{.firstSeen = now};
    if (!known || process.comm != stat->comm || now - process.firstSeen < youth || process.judged < m_judgement) {
        process.comm = std::move(stat->comm);
        process.judged = now;
        identify(pid, process);
    }
    seen.emplace(key, std::move(process));
}

// The program itself is asked first: what runs in a terminal is in the terminal's unit.
void ApplicationWalk::identify(std::int32_t pid, Process& process) const
{
    process.unit = innermostUnit(processFile(m_procFolder, pid, "cgroup"));
    if (!desktopIdOfUnit(process.unit))
        process.unit.clear();
    const auto executable = executableOf(m_procFolder, pid);
    const auto& program = executable ? *executable : process.comm;
    process.application = applicationOfProgram(pid, program);
    process.isKnownByUnit = !process.application && !process.unit.empty();
    if (!process.application)
        process.application = applicationOfSurroundings(pid, process.unit, program);
    if (!process.application)
        return;
    addIdentifiers(*process.application, program);
    if (executable)
        process.application->executablePath = validUtf8(*executable);
}

// What else it may be watched by: the name of its sandbox and the other applications in there, which cannot be told
// apart, and the bundle identifier of one that the application knows.
void ApplicationWalk::addIdentifiers(RunningApplication& application, const std::string& program) const
{
    const auto id = *application.bundleIdentifier;
    const auto* entry = m_index->byId(id);
    const auto applicationId = entry ? entry->applicationId : id;
    addIdentifier(application, applicationId);
    for (const auto& other : m_index->idsOf(applicationId))
        addIdentifier(application, other);
    addIdentifier(application, bundleIdentifierOf(applicationId));
    addIdentifier(application, bundleIdentifierOf(id));
    addIdentifier(application, bundleIdentifierOfExecutable(program));
}

std::optional<RunningApplication> ApplicationWalk::applicationOfProgram(std::int32_t pid,
                                                                        const std::string& program) const
{
    if (const auto* entry = entryOfProgram(pid, program))
        return applicationOf(*entry);
    if (const auto id = desktopIdOfExecutable(program))
        return applicationOfId(*id);
    return applicationOfExecutable(program);
}

std::optional<RunningApplication> ApplicationWalk::applicationOfSurroundings(std::int32_t pid, const std::string& unit,
                                                                             const std::string& program) const
{
    const auto id = idOfSurroundings(pid, unit, program);
    return id ? std::optional(applicationOfId(*id)) : std::nullopt;
}

RunningApplication ApplicationWalk::applicationOfId(const std::string& id) const
{
    const auto* entry = m_index->byId(id);
    return entry ? applicationOf(*entry) : applicationWithoutEntry(validUtf8(id), validUtf8(id));
}

std::optional<std::string> ApplicationWalk::idOfSurroundings(std::int32_t pid, const std::string& unit,
                                                             const std::string& program) const
{
    const ProcessPlace place{m_procFolder, pid};
    if (auto id = idInFlatpakInfo(place))
        return id;
    if (auto id = desktopIdOfUnit(unit))
        return id;
    if (auto id = idInSnapLabel(place))
        return id;
    const ProcessEnvironment environment(place);
    if (auto id = idOfImage(environment, program))
        return id;
    return idInEnvironment(environment, pid);
}

std::optional<std::string> ApplicationWalk::idOfImage(const ProcessEnvironment& environment,
                                                      const std::string& program) const
{
    const auto image = imageInEnvironment(environment, program);
    const auto* entry = image ? m_index->byProgram(*image) : nullptr;
    return entry ? std::optional(entry->id) : std::nullopt;
}

const DesktopEntry* ApplicationWalk::entryOfProgram(std::int32_t pid, const std::string& executable) const
{
    if (!isInterpreter(executable))
        return m_index->byProgram(executable);
    const auto file = interpretedFile(zeroSeparated(processFile(m_procFolder, pid, "cmdline")));
    return file.empty() ? nullptr : m_index->byProgram(file);
}

} // namespace orrinvale
