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

DesktopEntryIndex::DesktopEntryIndex(std::vector<fs::path> folders)
    : m_folders(std::move(folders)), m_watched(m_folders)
{
}

DesktopEntryIndex::Stamps DesktopEntryIndex::stamps() const
{
    Stamps all;
    std::error_code error;
    for (const auto& folder : m_watched)
        all.push_back(fs::last_write_time(folder, error));
    return all;
}

// A folder changes when something comes or goes in it, and not with what is in its sub-folders.
void DesktopEntryIndex::watchSubfolders()
{
    m_watched = m_folders;
    for (const auto& folder : m_folders) {
        std::error_code error;
        fs::recursive_directory_iterator each(folder, fs::directory_options::skip_permission_denied, error);
        for (; !error && each != fs::recursive_directory_iterator(); each.increment(error))
            if (std::error_code ignored; each->is_directory(ignored))
                m_watched.push_back(each->path());
    }
}

bool DesktopEntryIndex::update()
{
    if (m_stamps == stamps())
        return false;
    watchSubfolders();
    m_stamps = stamps(); // before the entries are read: what changes meanwhile is read again
    m_entries.clear();
    m_applicationIds.clear();
    m_programs.clear();
    for (auto& entry : readDesktopEntries(m_folders))
        add(std::move(entry));
    return true;
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
