// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxLoginItem.h"

#include "base/AtomicFile.h"

#include <cerrno>

namespace orrinvale
{

namespace fs = std::filesystem;

namespace
{

// An argument of Exec, quoted as the Desktop Entry Specification asks: first for its quoting, then for its strings.
std::string quoted(const std::string& argument)
{
    std::string text = "\"";
    for (const char c : argument) {
        if (c == '"' || c == '`' || c == '$')
            text += "\\\\";
        if (c == '\\')
            text += "\\\\\\";
        if (c == '%')
            text += '%';
        text += c;
    }
    return text + '"';
}

} // namespace

LinuxLoginItem::LinuxLoginItem(const fs::path& autostartFolder, fs::path executable)
    : m_file(autostartFolder / "orrinvale.desktop"), m_executable(std::move(executable))
{
}

std::string LinuxLoginItem::entry() const
{
    return "[Desktop Entry]\nType=Application\nName=orrinvale\nComment=Keeps the computer awake while it has work to "
           "do\n"
           "Exec=" +
           quoted(m_executable.string()) + "\nIcon=orrinvale\nTerminal=false\nX-GNOME-Autostart-enabled=true\n";
}

std::optional<std::string> LinuxLoginItem::registerApplication()
{
    std::error_code error;
    fs::create_directories(m_file.parent_path(), error);
    if (error)
        return error.message();
    // An atomic write follows links: reading back shows whether the entry really stands where the desktop looks.
    errno = 0;
    if (!writeFileAtomically(m_file, entry()) || readWholeFile(m_file) != entry())
        return std::error_code(errno != 0 ? errno : EIO, std::generic_category()).message();
    return std::nullopt;
}

std::optional<std::string> LinuxLoginItem::unregisterApplication()
{
    std::error_code error;
    fs::remove(m_file, error);
    if (error)
        return error.message();
    return std::nullopt;
}

} // namespace orrinvale
