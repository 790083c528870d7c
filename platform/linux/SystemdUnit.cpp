// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/SystemdUnit.h"

#include <algorithm>
#include <charconv>

namespace orrinvale
{

namespace
{

constexpr std::string_view escape = "\\x";
constexpr std::string_view snapPrefix = "snap.";
constexpr std::string_view applicationPrefix = "app-";
constexpr std::string_view scopeSuffix = ".scope";
constexpr std::string_view serviceSuffix = ".service";
constexpr std::string_view autostartSuffix = "@autostart";

// systemd escapes bytes of unit names as \xNN.
std::string unescaped(std::string_view text)
{
    std::string plain;
    while (!text.empty()) {
        unsigned char byte = 0;
        const auto digits = text.starts_with(escape) ? text.substr(escape.size(), 2) : std::string_view();
        const auto* end = digits.data() + digits.size();
        const auto isEscape = digits.size() == 2 && std::from_chars(digits.data(), end, byte, 16).ptr == end;
        plain += isEscape ? static_cast<char>(byte) : text.front();
        text.remove_prefix(isEscape ? escape.size() + digits.size() : 1);
    }
    return plain;
}

bool isDigits(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

// "0::/user.slice/…/app.slice/app-org.example.App-123.scope", or "1:name=systemd:/…" where the old hierarchies are in
// use too. Others may manage those of single controllers, which come first then.
bool isOfSystemd(std::string_view line)
{
    return line.starts_with("0::") || line.find(":name=systemd:") != line.npos;
}

std::string_view innermostUnitOfPath(std::string_view path)
{
    while (!path.empty()) {
        const auto slash = path.rfind('/');
        const auto part = path.substr(slash == path.npos ? 0 : slash + 1);
        if (part.ends_with(scopeSuffix) || part.ends_with(serviceSuffix))
            return part;
        path = path.substr(0, slash == path.npos ? 0 : slash);
    }
    return {};
}

// snap.<package>.<application>.<uuid>.scope
std::optional<std::string> snapOfUnit(std::string_view unit)
{
    unit.remove_prefix(snapPrefix.size());
    const auto package = unit.find('.');
    const auto application = package == unit.npos ? unit.npos : unit.find('.', package + 1);
    if (application == unit.npos)
        return std::nullopt;
    return std::string(unit.substr(0, package)) + "_" +
           std::string(unit.substr(package + 1, application - package - 1));
}

// app-[<launcher>-]<id>@<n>.service, or without the "@<n>". What is started with the session is no application.
std::string_view nameOfService(std::string_view unit)
{
    return unit.ends_with(autostartSuffix) ? std::string_view() : unit.substr(0, unit.find('@'));
}

// app-[<launcher>-]<id>-<n>.scope
std::string_view nameOfScope(std::string_view unit)
{
    const auto dash = unit.rfind('-');
    return dash != unit.npos && isDigits(unit.substr(dash + 1)) ? unit.substr(0, dash) : unit;
}

} // namespace

std::string innermostUnit(std::string_view cgroup)
{
    std::string_view found;
    while (!cgroup.empty()) {
        const auto line = cgroup.substr(0, cgroup.find('\n'));
        cgroup.remove_prefix(std::min(line.size() + 1, cgroup.size()));
        const auto unit = innermostUnitOfPath(line.substr(std::min(line.find('/'), line.size())));
        if (!unit.empty() && isOfSystemd(line))
            return std::string(unit);
        if (found.empty())
            found = unit;
    }
    return std::string(found);
}

std::optional<std::string> desktopIdOfUnit(std::string_view unit)
{
    if (unit.starts_with(snapPrefix))
        return snapOfUnit(unit);
    if (!unit.starts_with(applicationPrefix))
        return std::nullopt;
    unit.remove_prefix(applicationPrefix.size());
    auto name = unit;
    if (unit.ends_with(serviceSuffix))
        name = nameOfService(unit.substr(0, unit.size() - serviceSuffix.size()));
    else if (unit.ends_with(scopeSuffix))
        name = nameOfScope(unit.substr(0, unit.size() - scopeSuffix.size()));
    // A dash inside an id is escaped, so one that is plain ends the launcher's name.
    auto id = unescaped(name.substr(name.rfind('-') + 1));
    return id.empty() ? std::nullopt : std::optional(std::move(id));
}

} // namespace orrinvale
