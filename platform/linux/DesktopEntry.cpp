// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopEntry.h"

#include "base/Descriptor.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <set>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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
using Info = std::unique_ptr<GDesktopAppInfo, GUnref>;

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

constexpr std::size_t longestEntry = 1024 * 1024;

// nullopt unless it is a regular file that can be read to its end.
std::optional<std::string> readRegularFile(int descriptor)
{
    struct stat status {
    };
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    std::string text;
    std::array<char, 8192> buffer;
    for (ssize_t length; (length = ::read(descriptor, buffer.data(), buffer.size())) != 0;) {
        if (length < 0 || text.size() > longestEntry)
            return std::nullopt;
        text.append(buffer.data(), static_cast<std::size_t>(length));
    }
    return text;
}

// Opened so that nobody is waited for: a user's folder may hold a FIFO or a device.
std::optional<std::string> readRegularFile(const fs::path& file)
{
    const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    return descriptor.isOpen() ? readRegularFile(descriptor.get()) : std::nullopt;
}

// Null unless the file holds an application's entry.
Info infoOf(const fs::path& file)
{
    const auto text = readRegularFile(file);
    const std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)> keys(g_key_file_new(), &g_key_file_unref);
    if (!text || !g_key_file_load_from_data(keys.get(), text->data(), text->size(), G_KEY_FILE_NONE, nullptr))
        return nullptr;
    return Info(g_desktop_app_info_new_from_keyfile(keys.get()));
}

std::string value(const Info& info, const char* key)
{
    const GText text(g_desktop_app_info_get_locale_string(info.get(), key));
    return text ? validUtf8(text.get()) : std::string();
}

std::string firstOf(const std::string& first, const std::string& second)
{
    return first.empty() ? second : first;
}

std::string withoutSuffixes(std::string name)
{
    for (auto found = name.find(suffix); found != name.npos; found = name.find(suffix))
        name.erase(found, suffix.size());
    return name;
}

// Icon names are to be written without an extension, and often are with one.
std::string iconOf(const Info& info)
{
    auto icon = value(info, "Icon");
    for (const std::string_view extension : {".png", ".svg", ".xpm"}) {
        if (!icon.starts_with('/') && icon.ends_with(extension))
            icon.resize(icon.size() - extension.size());
    }
    return icon;
}

std::string applicationIdOf(const Info& info, const std::string& id)
{
    if (auto flatpak = value(info, "X-Flatpak"); !flatpak.empty())
        return flatpak;
    const auto snap = value(info, "X-SnapInstanceName");
    const auto snapApplication = value(info, "X-SnapAppName");
    return snap.empty() || snapApplication.empty() ? id : snap + "_" + snapApplication;
}

DesktopEntry entryOf(const Info& info, const fs::path& file, const std::string& id)
{
    auto* application = G_APP_INFO(info.get());
    const auto* exec = g_app_info_get_commandline(application);
    return {.id = validUtf8(id),
            .applicationId = validUtf8(applicationIdOf(info, id)),
            .name = firstOf(firstOf(value(info, "X-GNOME-FullName"), value(info, "Name")),
                            validUtf8(withoutSuffixes(file.filename().string()))),
            .icon = iconOf(info),
            .exec = exec ? exec : "",
            .path = file,
            .isRegular = !g_desktop_app_info_get_nodisplay(info.get()) &&
                         !g_desktop_app_info_get_boolean(info.get(), "Terminal"),
            .isShown = static_cast<bool>(g_app_info_should_show(application))};
}

using Files = std::map<std::string, fs::path>; // by id

Files filesIn(const fs::path& folder)
{
    Files files;
    std::error_code error;
    fs::recursive_directory_iterator each(folder, fs::directory_options::skip_permission_denied, error);
    for (; !error && each != fs::recursive_directory_iterator(); each.increment(error)) {
        auto id = each->path().lexically_relative(folder).string();
        if (!id.ends_with(suffix))
            continue;
        id.resize(id.size() - suffix.size());
        std::replace(id.begin(), id.end(), '/', '-'); // a sub-folder is a part of the id
        files.emplace(std::move(id), each->path());
    }
    return files;
}

} // namespace

std::vector<fs::path> userEntryFolders()
{
    std::vector<fs::path> folders{fs::path(g_get_user_data_dir()) / "applications"};
    for (const auto* const* folder = g_get_system_data_dirs(); *folder; ++folder)
        folders.push_back(fs::path(*folder) / "applications");
    return folders;
}

std::vector<DesktopEntry> readDesktopEntries(const std::vector<fs::path>& folders)
{
    std::vector<DesktopEntry> entries;
    std::set<std::string> taken;
    for (const auto& folder : folders) {
        for (const auto& [id, file] : filesIn(folder)) {
            const auto info = taken.contains(id) ? nullptr : infoOf(file);
            if (!info)
                continue;
            taken.insert(id); // a hidden one hides those of later folders
            if (!g_desktop_app_info_get_is_hidden(info.get()))
                entries.push_back(entryOf(info, file, id));
        }
    }
    return entries;
}

std::optional<DesktopEntry> readDesktopEntry(const std::vector<fs::path>& folders, const std::string& id)
{
    if (id.find('/') != id.npos)
        return std::nullopt;
    for (const auto& folder : folders) {
        const auto file = folder / (id + std::string(suffix));
        const auto info = infoOf(file);
        if (info)
            return g_desktop_app_info_get_is_hidden(info.get()) ? std::nullopt : std::optional(entryOf(info, file, id));
    }
    return std::nullopt;
}

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

std::size_t argumentCount(const std::string& exec)
{
    const auto words = shellWords(exec);
    const auto isArgument = [](const std::string& word) { return !word.starts_with('%'); };
    return static_cast<std::size_t>(std::count_if(words.begin(), words.end(), isArgument));
}

} // namespace orrinvale
