// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopEntryIndex.h"

#include <memory>

#include <glib.h>

namespace orrinvale
{

namespace fs = std::filesystem;

namespace
{

std::string lastComponent(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

std::string resolved(const std::string& program)
{
    const std::unique_ptr<char, decltype(&g_free)> found(g_find_program_in_path(program.c_str()), &g_free);
    std::error_code error;
    const auto real = fs::canonical(found ? found.get() : program.c_str(), error);
    return error ? program : real.string();
}

} // namespace

DesktopEntryIndex::DesktopEntryIndex(std::vector<DesktopEntry> entries)
{
    for (auto& entry : entries)
        add(std::move(entry));
}

void DesktopEntryIndex::add(DesktopEntry entry)
{
    if (const auto program = startedProgram(entry.exec); !program.empty()) {
        addProgram(resolved(program), entry);
        addProgram(lastComponent(program), entry);
    }
    m_applicationIds[entry.applicationId].push_back(entry.id);
    auto id = entry.id;
    m_entries.emplace(std::move(id), std::move(entry));
}

void DesktopEntryIndex::addProgram(const std::string& path, const DesktopEntry& entry)
{
    Program program{entry.id, argumentCount(entry.exec)};
    const auto [known, isNew] = m_programs.try_emplace(path, program);
    if (!isNew && program.arguments < known->second.arguments)
        known->second = std::move(program);
}

const DesktopEntry* DesktopEntryIndex::byId(const std::string& id) const
{
    if (const auto found = m_entries.find(id); found != m_entries.end())
        return &found->second;
    const auto& others = idsOf(id);
    return others.empty() ? nullptr : &m_entries.at(others.front());
}

const DesktopEntry* DesktopEntryIndex::byProgram(const std::string& path) const
{
    auto found = m_programs.find(path);
    if (found == m_programs.end())
        found = m_programs.find(lastComponent(path));
    return found == m_programs.end() ? nullptr : byId(found->second.id);
}

const std::vector<std::string>& DesktopEntryIndex::idsOf(const std::string& applicationId) const
{
    static const std::vector<std::string> none;
    const auto found = m_applicationIds.find(applicationId);
    return found == m_applicationIds.end() ? none : found->second;
}

} // namespace orrinvale
