// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/ApplicationWalk.h"

#include "base/Text.h"
#include "platform/linux/ApplicationIdentity.h"

#include <algorithm>
#include <cstdio>
#include <set>

#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr auto youth = 30s;

// systemd escapes bytes of unit names as \xNN.
std::string unescaped(std::string_view text)
{
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = 0;
        if (text.substr(i).starts_with("\\x") && i + 3 < text.size() &&
            std::sscanf(std::string(text.substr(i + 2, 2)).c_str(), "%2x", &byte) == 1) {
            plain += static_cast<char>(byte);
            i += 3;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

std::string innermostUnit(const std::string& cgroup)
{
    // "0::/user.slice/…/app.slice/app-org.example.App-123.scope"
    auto path = std::string_view(cgroup).substr(0, cgroup.find('\n'));
    while (!path.empty()) {
        const auto slash = path.rfind('/');
        const auto part = path.substr(slash == path.npos ? 0 : slash + 1);
        if (part.ends_with(".scope") || part.ends_with(".service"))
            return std::string(part);
        path = path.substr(0, slash == path.npos ? 0 : slash);
    }
    return {};
}

bool isDigits(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

std::string keyFileValue(const std::string& text, std::string_view key)
{
    const auto line = text.find(fmt::format("\n{}=", key));
    if (line == text.npos)
        return {};
    const auto start = line + key.size() + 2;
    return text.substr(start, text.find('\n', start) - start);
}

std::string withoutSuffix(std::string text, std::string_view suffix)
{
    if (text.ends_with(suffix))
        text.resize(text.size() - suffix.size());
    return text;
}

} // namespace

std::optional<std::string> desktopIdOfUnit(std::string unit)
{
    if (unit.starts_with("snap.")) { // snap.<package>.<application>.<uuid>.scope
        const auto package = unit.find('.', 5);
        const auto application = package == unit.npos ? unit.npos : unit.find('.', package + 1);
        if (application == unit.npos)
            return std::nullopt;
        return unit.substr(5, package - 5) + "_" + unit.substr(package + 1, application - package - 1);
    }
    if (!unit.starts_with("app-"))
        return std::nullopt;
    unit = unit.substr(4);
    if (unit.ends_with(".service")) { // app-[<launcher>-]<id>@<n>.service, or without the "@<n>"
        unit = withoutSuffix(unit, ".service");
        if (unit.ends_with("@autostart"))
            return std::nullopt;
        unit = unit.substr(0, unit.find('@'));
    } else { // app-[<launcher>-]<id>-<n>.scope
        unit = withoutSuffix(unit, ".scope");
        const auto dash = unit.rfind('-');
        if (dash != unit.npos && isDigits(std::string_view(unit).substr(dash + 1)))
            unit.resize(dash);
    }
    // A dash inside an id is escaped, so one that is plain ends the launcher's name.
    if (const auto dash = unit.rfind('-'); dash != unit.npos)
        unit = unit.substr(dash + 1);
    return unescaped(unit);
}

ApplicationWalk::ApplicationWalk(std::string procFolder, std::vector<std::filesystem::path> entryFolders)
    : m_procFolder(std::move(procFolder)), m_index(std::move(entryFolders))
{
}

std::vector<RunningApplication> ApplicationWalk::walk(std::chrono::steady_clock::time_point now)
{
    if (m_index.update())
        m_processes.clear(); // each is judged anew
    std::map<Key, Process> seen;
    for (const auto pid : processIds(m_procFolder))
        visit(pid, now, seen);
    m_processes = std::move(seen);
    std::vector<RunningApplication> applications;
    std::set<std::string> units, identifiers;
    for (const auto& [key, process] : m_processes) {
        // What an application's own processes start folds into the oldest of the unit, unless its program says
        // otherwise.
        const auto isHelper = process.isKnownByUnit && !units.insert(process.unit).second;
        if (process.application && !isHelper && identifiers.insert(*process.application->bundleIdentifier).second)
            applications.push_back(*process.application);
    }
    return applications;
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
    Process process = known ? std::move(known.mapped()) : Process{{}, now, {}, {}, false};
    if (!known || process.comm != stat->comm || now - process.firstSeen < youth) {
        process.comm = std::move(stat->comm);
        identify(pid, process);
    }
    seen.emplace(key, std::move(process));
}

void ApplicationWalk::identify(std::int32_t pid, Process& process) const
{
    process.application.reset();
    process.unit = innermostUnit(processFile(m_procFolder, pid, "cgroup"));
    const auto executable = executableOf(m_procFolder, pid);
    const auto path = executable ? std::optional(validUtf8(*executable)) : std::nullopt;
    const auto report = [&](std::string identifier, std::string name) {
        process.application =
            RunningApplication{std::move(identifier), std::move(name), path, ActivationPolicy::accessory};
    };
    const auto reportEntry = [&](const DesktopEntry& entry) {
        report(bundleIdentifierOf(entry.applicationId), entry.name);
        if (entry.isRegular)
            process.application->activationPolicy = ActivationPolicy::regular;
        if (!entry.icon.empty())
            process.application->iconName = entry.icon;
    };
    // The program itself is asked first: what runs in a terminal is in the terminal's unit.
    const auto& program = executable ? *executable : process.comm;
    const auto* entry = entryOfProgram(pid, program);
    process.isKnownByUnit = !entry && desktopIdOfUnit(process.unit);
    if (entry)
        return reportEntry(*entry);
    if (auto identifier = bundleIdentifierOfExecutable(program)) {
        process.isKnownByUnit = false;
        return report(*identifier, validUtf8(program.substr(program.rfind('/') + 1)));
    }
    const auto id = desktopIdOf(pid, process.unit, program);
    if (!id)
        return;
    entry = m_index.byId(*id);
    entry ? reportEntry(*entry) : report(bundleIdentifierOf(validUtf8(*id)), validUtf8(*id));
}

std::optional<std::string> ApplicationWalk::desktopIdOf(std::int32_t pid, const std::string& unit,
                                                        const std::string& executable) const
{
    if (auto name = keyFileValue(processFile(m_procFolder, pid, "root/.flatpak-info"), "name"); !name.empty())
        return name;
    if (auto id = desktopIdOfUnit(unit))
        return id;
    // Where no unit tells: the confinement's label is snap.<package>.<application> and its mode in brackets.
    const auto label = processFile(m_procFolder, pid, "attr/current");
    if (auto id = label.starts_with("snap.") ? desktopIdOfUnit(label.substr(0, label.find(' ')) + ".") : std::nullopt)
        return id;
    const auto environment = zeroSeparated(processFile(m_procFolder, pid, "environ"));
    const auto value = [&](std::string_view name) -> std::string {
        for (const auto& each : environment) {
            if (each.starts_with(name))
                return each.substr(name.size());
        }
        return {};
    };
    // These variables are inherited by everything that the application starts: only its own processes count, and of an
    // AppImage those whose program lies in its mount.
    const auto mount = value("APPDIR=");
    if (const auto image = value("APPIMAGE=");
        !image.empty() && !mount.empty() && executable.starts_with(mount + "/")) {
        if (const auto* entry = m_index.byProgram(image))
            return entry->id;
    }
    if (value("GIO_LAUNCHED_DESKTOP_FILE_PID=") != std::to_string(pid))
        return std::nullopt;
    const auto file = std::filesystem::path(value("GIO_LAUNCHED_DESKTOP_FILE="));
    return file.empty() ? std::nullopt : std::optional(withoutSuffix(file.filename().string(), ".desktop"));
}

const DesktopEntry* ApplicationWalk::entryOfProgram(std::int32_t pid, const std::string& executable) const
{
    if (!isInterpreter(executable))
        return m_index.byProgram(executable);
    const auto file = interpretedFile(zeroSeparated(processFile(m_procFolder, pid, "cmdline")));
    return file.empty() ? nullptr : m_index.byProgram(file);
}

} // namespace orrinvale
