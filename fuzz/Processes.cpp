// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// /proc/PID: whose process it is, and what it costs.
#include "base/Text.h"
#include "fuzz/FuzzInput.h"
#include "fuzz/ScratchFolder.h"
#include "orrinvale/ProcessTable.h"
#include "platform/linux/ApplicationWalk.h"
#include "platform/linux/LinuxProcessStatus.h"

using namespace orrinvale;
namespace fs = std::filesystem;

namespace
{

// The pieces of an input, in the order of the members.
void writeProcess(const fs::path& folder, FuzzInput& input)
{
    for (const auto* file : {"stat", "cgroup", "cmdline", "environ", "attr/current", "root/.flatpak-info", "comm"})
        writeScratchFile(folder / file, input.piece());
    const std::string program(input.piece());
    std::error_code none;
    fs::remove(folder / "exe", none);
    if (!program.empty() && program.find('\0') == program.npos)
        fs::create_symlink(program, folder / "exe", none);
}

std::shared_ptr<const DesktopEntryIndex> installedEntries()
{
    const auto folder = scratchFolder() / "applications";
    writeScratchFile(folder / "org.example.App.desktop", "[Desktop Entry]\nType=Application\nName=App\nExec=app %U\n");
    writeScratchFile(folder / "py.desktop",
                     "[Desktop Entry]\nType=Application\nName=Py\nExec=/usr/bin/python3 /opt/py.py\n");
    return std::make_shared<DesktopEntryIndex>(readDesktopEntries({folder}));
}

void look(ApplicationWalk& walk)
{
    static const auto entries = installedEntries();
    for (const auto& application : walk.walk(entries, std::chrono::steady_clock::now())) {
        const auto& identifier = application.bundleIdentifier;
        const auto& name = application.localizedName;
        require(identifier && *identifier == validUtf8(*identifier), "an application has an identifier in UTF-8");
        require(!name || *name == validUtf8(*name), "a name is in UTF-8");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    static const auto proc = (scratchFolder() / "proc").string();
    writeProcess(fs::path(proc) / "4711", input);
    static ApplicationWalk lasting(proc); // remembers the same process under another face
    ApplicationWalk fresh(proc);
    look(lasting);
    look(fresh);
    const auto reading = readProcesses(proc);
    if (!reading)
        return 0;
    const auto table = processTable(proc, {}, *reading, std::chrono::duration<double>(1.5));
    require(table == validUtf8(table), "the table is in UTF-8");
    topProcessName(table);
    return 0;
}
