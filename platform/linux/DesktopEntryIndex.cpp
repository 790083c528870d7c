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
        m_programs.emplace(resolved(program), entry.id);
        m_programs.emplace(lastComponent(program), entry.id);
    }
    m_applicationIds.emplace(entry.applicationId, entry.id);
    auto id = entry.id;
    m_entries.emplace(std::move(id), std::move(entry));
}

const DesktopEntry* DesktopEntryIndex::byId(const std::string& id) const
{
    if (const auto found = m_entries.find(id); found != m_entries.end())
        return &found->second;
    const auto other = m_applicationIds.find(id);
    return other == m_applicationIds.end() ? nullptr : &m_entries.at(other->second);
}

const DesktopEntry* DesktopEntryIndex::byProgram(const std::string& path) const
{
    auto found = m_programs.find(path);
    if (found == m_programs.end())
        found = m_programs.find(lastComponent(path));
    return found == m_programs.end() ? nullptr : byId(found->second);
}

} // namespace orrinvale
