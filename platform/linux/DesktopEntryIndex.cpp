// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopEntryIndex.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

#include <gio/gdesktopappinfo.h>

namespace orrinvale
{

namespace fs = std::filesystem;

namespace
{

struct GFree {
    void operator()(void* memory) const { g_free(memory); }
};
struct GUnref {
    void operator()(void* object) const { g_object_unref(object); }
};
using GText = std::unique_ptr<char, GFree>;

constexpr std::string_view suffix = ".desktop";
constexpr std::array<std::string_view, 12> interpreters{"sh",   "bash", "dash",     "python", "perl", "ruby",
                                                        "java", "node", "electron", "wine",   "mono", "gjs"};

std::string lastComponent(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

std::vector<std::string> shellWords(const std::string& line)
{
    int count = 0;
    char** words = nullptr;
    if (!g_shell_parse_argv(line.c_str(), &count, &words, nullptr))
        return {};
    std::vector<std::string> all(words, words + count);
    g_strfreev(words);
    return all;
}

std::string resolved(const std::string& program)
{
    const GText found(g_find_program_in_path(program.c_str()));
    std::error_code error;
    const auto real = fs::canonical(found ? found.get() : program.c_str(), error);
    return error ? program : real.string();
}

} // namespace

bool isInterpreter(const std::string& program)
{
    auto name = lastComponent(program);
    while (!name.empty() && (name.back() == '.' || (name.back() >= '0' && name.back() <= '9')))
        name.pop_back(); // python3.11
    return std::find(interpreters.begin(), interpreters.end(), name) != interpreters.end();
}

std::string interpretedFile(const std::vector<std::string>& arguments)
{
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        if (arguments[i] == "-c" || arguments[i] == "-m" || arguments[i] == "-e")
            return {};
        if (!arguments[i].starts_with('-'))
            return arguments[i];
    }
    return {};
}

std::string startedProgram(const std::string& exec)
{
    auto words = shellWords(exec);
    const auto isAssignment = [](const std::string& word) { return word.find('=') != word.npos; };
    while (!words.empty() && (lastComponent(words[0]) == "env" || isAssignment(words[0])))
        words.erase(words.begin());
    if (words.empty() || lastComponent(words[0]) == "flatpak" || lastComponent(words[0]) == "snap")
        return {};
    const auto isShellLine = words.size() > 2 && words[1] == "-c" && isInterpreter(words[0]);
    if (isShellLine)
        return startedProgram(words[2]);
    return isInterpreter(words[0]) ? interpretedFile(words) : words[0];
}

std::vector<fs::path> DesktopEntryIndex::userFolders()
{
    std::vector<fs::path> folders{fs::path(g_get_user_data_dir()) / "applications"};
    for (const auto* const* folder = g_get_system_data_dirs(); *folder; ++folder)
        folders.push_back(fs::path(*folder) / "applications");
    return folders;
}

DesktopEntryIndex::DesktopEntryIndex(std::vector<fs::path> folders) : m_folders(std::move(folders)) {}

DesktopEntryIndex::Stamps DesktopEntryIndex::stamps() const
{
    Stamps all;
    std::error_code error;
    for (const auto& folder : m_folders)
        all.push_back(fs::last_write_time(folder, error));
    return all;
}

void DesktopEntryIndex::update()
{
    auto now = stamps();
    if (m_stamps == now)
        return;
    m_stamps = std::move(now);
    m_entries.clear();
    m_programs.clear();
    m_hidden.clear();
    for (const auto& folder : m_folders)
        readFolder(folder);
}

void DesktopEntryIndex::readFolder(const fs::path& folder)
{
    std::error_code error;
    fs::recursive_directory_iterator each(folder, fs::directory_options::skip_permission_denied, error);
    for (; !error && each != fs::recursive_directory_iterator(); each.increment(error)) {
        auto id = each->path().lexically_relative(folder).string();
        if (!id.ends_with(suffix))
            continue;
        id.resize(id.size() - suffix.size());
        std::replace(id.begin(), id.end(), '/', '-'); // a sub-folder is a part of the id
        if (!m_entries.contains(id) && !m_hidden.contains(id))
            add(each->path(), std::move(id));
    }
}

void DesktopEntryIndex::add(const fs::path& file, std::string id)
{
    const std::unique_ptr<GDesktopAppInfo, GUnref> info(g_desktop_app_info_new_from_filename(file.c_str()));
    if (!info)
        return;
    if (g_desktop_app_info_get_is_hidden(info.get())) {
        m_hidden.insert(std::move(id)); // the entry of a later folder is hidden by it
        return;
    }
    auto* application = G_APP_INFO(info.get());
    const auto isRegular =
        !g_desktop_app_info_get_nodisplay(info.get()) && !g_desktop_app_info_get_boolean(info.get(), "Terminal");
    const auto* name = g_app_info_get_display_name(application);
    const auto* exec = g_app_info_get_commandline(application);
    if (const auto program = exec ? startedProgram(exec) : std::string(); !program.empty()) {
        m_programs.emplace(resolved(program), id);
        m_programs.emplace(lastComponent(program), id);
    }
    m_entries.emplace(id, DesktopEntry{validUtf8(id), validUtf8(name ? name : id), isRegular});
}

const DesktopEntry* DesktopEntryIndex::byId(const std::string& id) const
{
    const auto found = m_entries.find(id);
    return found == m_entries.end() ? nullptr : &found->second;
}

const DesktopEntry* DesktopEntryIndex::byProgram(const std::string& path) const
{
    auto found = m_programs.find(path);
    if (found == m_programs.end())
        found = m_programs.find(lastComponent(path));
    return found == m_programs.end() ? nullptr : byId(found->second);
}

} // namespace orrinvale
