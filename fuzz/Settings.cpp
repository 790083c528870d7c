// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// settings.json as it is at the start, and as somebody else writes it before the next assignment.
#include "base/AtomicFile.h"
#include "fuzz/FuzzInput.h"
#include "fuzz/ScratchFolder.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/SettingsTexts.h"
#include "platform/fake/FakePlatform.h"
#include "platform/linux/LinuxUserDefaults.h"
#include "text/LocalCalendar.h"

#include <nlohmann/json.hpp>

#include <cmath>

using namespace orrinvale;

namespace
{

const LocalCalendar& calendar()
{
    static const LocalCalendar utc("UTC", "en_US");
    return utc;
}

// A machine whose settings are stored in that file.
struct StoredMachine : FakePlatform {
    explicit StoredMachine(std::filesystem::path file) : userDefaults(std::move(file)) {}

    LinuxUserDefaults userDefaults;
    Platform platform = platformOf(*this);
    AppSettings settings{platform, calendar()};
};

void use(const AppSettings& settings)
{
    const auto threshold = settings.cpuBusyThreshold();
    require(threshold >= 15 && threshold <= 70, "the threshold is within its bounds whatever the sensitivity");
    thresholdsText(threshold, settings.cpuSingleCoreThreshold());
    lowBatterySubtitle(settings.lowBatteryThreshold.get());
    settings.daysSinceFirstLaunch();
    settings.isDarkTheme();
}

void assign(AppSettings& settings)
{
    settings.cpuSensitivity.set(settings.cpuSensitivity.get());
    settings.customProcesses.set(settings.customProcesses.get());
    settings.downloadsFolderPath.set(settings.downloadsFolderPath.get());
    settings.firstLaunchDate.set(settings.firstLaunchDate.get());
}

void readAgain(const std::filesystem::path& file, const AppSettings& settings)
{
    const auto stored = readWholeFile(file);
    require(stored && nlohmann::json::accept(*stored), "settings that are written are JSON");
    StoredMachine later(file);
    require(later.settings.customProcesses.get().size() == settings.customProcesses.get().size(),
            "the watch list is kept");
    const auto sensitivity = settings.cpuSensitivity.get();
    require(!std::isfinite(sensitivity) || later.settings.cpuSensitivity.get() == sensitivity, "a fraction is kept");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const auto folder = scratchFolder() / "settings";
    std::filesystem::remove_all(folder); // with what the last one set aside
    const auto file = folder / "settings.json";
    writeScratchFile(file, input.piece());
    StoredMachine stored(file);
    use(stored.settings);
    if (!input.isEmpty())
        writeScratchFile(file, input.rest());
    assign(stored.settings);
    readAgain(file, stored.settings);
    return 0;
}
