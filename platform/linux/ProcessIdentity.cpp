// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/ProcessIdentity.h"

#include "platform/linux/ProcFolder.h"
#include "platform/linux/SystemdUnit.h"

#include <fmt/format.h>

namespace orrinvale
{

namespace
{

std::optional<std::string> unlessEmpty(std::string text)
{
    return text.empty() ? std::nullopt : std::optional(std::move(text));
}

std::string keyFileValue(const std::string& text, std::string_view key)
{
    const auto line = text.find(fmt::format("\n{}=", key));
    if (line == text.npos)
        return {};
    const auto start = line + key.size() + 2;
    return text.substr(start, text.find('\n', start) - start);
}

} // namespace

std::optional<std::string> idInFlatpakInfo(const ProcessPlace& process)
{
    return unlessEmpty(keyFileValue(processFile(process.procFolder, process.pid, "root/.flatpak-info"), "name"));
}

std::optional<std::string> idInSnapLabel(const ProcessPlace& process)
{
    // "snap.<package>.<application> (enforce)": a unit's name without its end.
    const auto label = processFile(process.procFolder, process.pid, "attr/current");
    if (!label.starts_with("snap."))
        return std::nullopt;
    return desktopIdOfUnit(label.substr(0, label.find(' ')) + ".");
}

ProcessEnvironment::ProcessEnvironment(const ProcessPlace& process)
    : m_variables(zeroSeparated(processFile(process.procFolder, process.pid, "environ")))
{
}

std::string ProcessEnvironment::value(std::string_view name) const
{
    for (const auto& variable : m_variables) {
        if (variable.starts_with(name) && variable.substr(name.size(), 1) == "=")
            return variable.substr(name.size() + 1);
    }
    return {};
}

std::optional<std::string> imageInEnvironment(const ProcessEnvironment& environment, std::string_view executable)
{
    const auto mount = environment.value("APPDIR");
    if (mount.empty() || !executable.starts_with(mount + "/"))
        return std::nullopt;
    return unlessEmpty(environment.value("APPIMAGE"));
}

std::optional<std::string> idInEnvironment(const ProcessEnvironment& environment, std::int32_t pid)
{
    if (environment.value("GIO_LAUNCHED_DESKTOP_FILE_PID") != std::to_string(pid))
        return std::nullopt;
    auto name = environment.value("GIO_LAUNCHED_DESKTOP_FILE");
    name = name.substr(name.rfind('/') + 1);
    constexpr std::string_view suffix = ".desktop";
    if (name.ends_with(suffix))
        name.resize(name.size() - suffix.size());
    return unlessEmpty(std::move(name));
}

} // namespace orrinvale
