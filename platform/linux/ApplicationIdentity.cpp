// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/ApplicationIdentity.h"

#include <algorithm>
#include <array>

namespace orrinvale
{

namespace
{

struct Known {
    std::string_view pattern; // a "*" at the end stands for anything
    std::string_view bundleIdentifier;
};

constexpr std::array desktopIds{
    Known{"Zoom", "us.zoom.xos"},
    Known{"us.zoom.Zoom", "us.zoom.xos"},
    Known{"zoom-client_zoom-client", "us.zoom.xos"},
    Known{"teams-for-linux", "com.microsoft.teams2"},
    Known{"com.github.IsmaelMartinez.teams_for_linux", "com.microsoft.teams2"},
    Known{"teams-for-linux_teams-for-linux", "com.microsoft.teams2"},
    Known{"com.blackmagicdesign.resolve", "com.blackmagic-design.DaVinci-Resolve"},
    Known{"fr.handbrake.ghb", "com.handbrake.HandBrake"},
    Known{"handbrake-jz", "com.handbrake.HandBrake"},
    Known{"handbrake-jz_handbrake-jz", "com.handbrake.HandBrake"},
    Known{"jetbrains-idea*", "com.jetbrains.intellij"},
    Known{"com.jetbrains.IntelliJ-IDEA-*", "com.jetbrains.intellij"},
    Known{"intellij-idea-ultimate_*", "com.jetbrains.intellij"},
    Known{"intellij-idea-community_*", "com.jetbrains.intellij"},
    Known{"jetbrains-clion*", "com.jetbrains.CLion"},
    Known{"clion_clion", "com.jetbrains.CLion"},
    Known{"dropbox", "com.dropbox.client2"},
    Known{"com.dropbox.Client", "com.dropbox.client2"},
    Known{"transmission-gtk", "org.m0k.transmission"},
    Known{"transmission-qt", "org.m0k.transmission"},
    Known{"com.transmissionbt.Transmission*", "org.m0k.transmission"},
    Known{"org.qbittorrent.qBittorrent", "org.qbittorrent.qbittorrent"},
    Known{"org.gnome.Terminal", "com.apple.Terminal"},
    Known{"org.gnome.Console", "com.apple.Terminal"},
    Known{"org.gnome.Ptyxis", "com.apple.Terminal"},
    Known{"org.kde.konsole", "com.apple.Terminal"},
    Known{"xfce4-terminal", "com.apple.Terminal"},
    Known{"mate-terminal", "com.apple.Terminal"},
    Known{"qterminal", "com.apple.Terminal"},
    Known{"org.wezfurlong.wezterm", "com.github.wez.wezterm"},
    Known{"google-chrome", "com.google.Chrome"},
    Known{"chromium", "com.google.Chrome"},
    Known{"firefox", "org.mozilla.firefox"},
    Known{"firefox-esr", "org.mozilla.firefox"},
    Known{"firefox_firefox", "org.mozilla.firefox"},
    Known{"opera", "com.operasoftware.Opera"},
    Known{"com.opera.Opera", "com.operasoftware.Opera"},
};

constexpr std::array executables{
    Known{"zoom", "us.zoom.xos"},
    Known{"ghb", "com.handbrake.HandBrake"},
    Known{"HandBrakeCLI", "com.handbrake.HandBrake"},
    Known{"ffmpeg", "org.ffmpeg.FFmpegKit"},
    Known{"dropbox", "com.dropbox.client2"},
    Known{"transmission-daemon", "org.m0k.transmission"},
    Known{"transmission-gtk", "org.m0k.transmission"},
    Known{"transmission-qt", "org.m0k.transmission"},
    Known{"qbittorrent", "org.qbittorrent.qbittorrent"},
    Known{"qbittorrent-nox", "org.qbittorrent.qbittorrent"},
    Known{"gnome-terminal-server", "com.apple.Terminal"},
    Known{"kgx", "com.apple.Terminal"},
    Known{"wezterm-gui", "com.github.wez.wezterm"},
};
struct StartedBy {
    std::string_view executable;
    std::string_view desktopId;
};
constexpr std::array startedByAnother{
    StartedBy{"gnome-terminal-server", "org.gnome.Terminal"},
    StartedBy{"wezterm-gui", "org.wezfurlong.wezterm"},
};
constexpr std::string_view resolvePath = "/resolve/bin/resolve";

bool matches(std::string_view pattern, std::string_view text)
{
    if (!pattern.ends_with('*'))
        return pattern == text;
    pattern.remove_suffix(1);
    return text.starts_with(pattern);
}

template <typename Table>
std::optional<std::string> find(const Table& table, std::string_view text)
{
    const auto found =
        std::find_if(table.begin(), table.end(), [&](const Known& known) { return matches(known.pattern, text); });
    return found == table.end() ? std::nullopt : std::optional(std::string(found->bundleIdentifier));
}

} // namespace

std::optional<std::string> bundleIdentifierOf(const std::string& desktopId)
{
    return find(desktopIds, desktopId);
}

std::vector<std::string> desktopIdsOf(const std::string& bundleIdentifier)
{
    std::vector<std::string> ids;
    for (const auto& known : desktopIds) {
        if (known.bundleIdentifier == bundleIdentifier && !known.pattern.ends_with('*'))
            ids.emplace_back(known.pattern);
    }
    return ids;
}

std::optional<std::string> desktopIdOfExecutable(std::string_view path)
{
    const auto name = path.substr(path.rfind('/') + 1);
    for (const auto& each : startedByAnother) {
        if (each.executable == name)
            return std::string(each.desktopId);
    }
    return std::nullopt;
}

std::optional<std::string> bundleIdentifierOfExecutable(std::string_view path)
{
    if (path.ends_with(resolvePath))
        return "com.blackmagic-design.DaVinci-Resolve";
    return find(executables, path.substr(path.rfind('/') + 1));
}

} // namespace orrinvale
