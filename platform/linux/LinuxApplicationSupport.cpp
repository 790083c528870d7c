// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxApplicationSupport.h"

#include "base/AtomicFile.h"

#include <cstdlib>
#include <string>

#include <pwd.h>
#include <unistd.h>

namespace orrinvale
{

namespace fs = std::filesystem;

namespace
{

constexpr std::uint64_t largestUserDirs = 1024 * 1024;

std::optional<fs::path> absoluteVariable(const char* name)
{
    const auto* value = std::getenv(name);
    return value && value[0] == '/' ? std::optional(fs::path(value)) : std::nullopt;
}

// The text between the quotes of a line `XDG_DOWNLOAD_DIR="…"`, as xdg-user-dirs writes it.
std::optional<std::string> quotedValue(std::string_view line, std::string_view name)
{
    const auto start = line.find_first_not_of(" \t");
    if (start == line.npos || !line.substr(start).starts_with(name))
        return std::nullopt;
    line.remove_prefix(start + name.size());
    const auto equals = line.find_first_not_of(" \t");
    if (equals == line.npos || line[equals] != '=')
        return std::nullopt;
    const auto quote = line.find_first_not_of(" \t", equals + 1);
    if (quote == line.npos || line[quote] != '"')
        return std::nullopt;
    std::string value;
    for (auto i = quote + 1; i < line.size() && line[i] != '"'; ++i) {
        if (line[i] == '\\' && i + 1 < line.size())
            ++i;
        value += line[i];
    }
    return value;
}

std::optional<fs::path> userDirectory(const std::string& value, const fs::path& home)
{
    constexpr std::string_view homePrefix = "$HOME/";
    if (value.starts_with('/'))
        return fs::path(value);
    // A user directory that is the home itself means that there is none.
    if (!value.starts_with(homePrefix) || value.find_first_not_of('/', homePrefix.size()) == value.npos)
        return std::nullopt;
    return home / value.substr(homePrefix.size());
}

} // namespace

fs::path LinuxApplicationSupport::homeDirectory()
{
    if (const auto home = absoluteVariable("HOME"))
        return *home;
    const auto* user = ::getpwuid(::getuid());
    return user && user->pw_dir ? user->pw_dir : "/";
}

fs::path LinuxApplicationSupport::configDirectory()
{
    return absoluteVariable("XDG_CONFIG_HOME").value_or(homeDirectory() / ".config");
}

std::optional<fs::path> LinuxApplicationSupport::applicationSupportDirectory()
{
    return absoluteVariable("XDG_DATA_HOME").value_or(homeDirectory() / ".local" / "share");
}

std::optional<fs::path> LinuxApplicationSupport::runtimeDirectory()
{
    return absoluteVariable("XDG_RUNTIME_DIR");
}

fs::path LinuxApplicationSupport::temporaryDirectory()
{
    std::error_code error;
    auto folder = fs::temp_directory_path(error);
    return error ? fs::path("/tmp") : folder;
}

std::optional<fs::path> LinuxApplicationSupport::downloadsDirectory()
{
    const auto file = readWholeFile(configDirectory() / "user-dirs.dirs", largestUserDirs);
    std::string_view rest = file ? std::string_view(*file) : std::string_view();
    std::optional<fs::path> found;
    while (!rest.empty()) {
        const auto end = rest.find('\n');
        if (const auto value = quotedValue(rest.substr(0, end), "XDG_DOWNLOAD_DIR"))
            found = userDirectory(*value, homeDirectory());
        rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    }
    return found;
}

} // namespace orrinvale
