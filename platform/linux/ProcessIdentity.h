// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrinvale
{

// What a process itself tells of the application it belongs to: one function for each source; nullopt where that source
// says nothing. A process may end at any moment, and what it says may be anything. Thread-safe.

struct ProcessPlace {
    const std::string& procFolder;
    std::int32_t pid;
};

// The name of the sandbox that it runs in: what /.flatpak-info says there.
std::optional<std::string> idInFlatpakInfo(const ProcessPlace& process);

// "<package>_<application>" from the label of its confinement, which tells where no unit does.
std::optional<std::string> idInSnapLabel(const ProcessPlace& process);

// The variables that it was started with.
class ProcessEnvironment
{
public:
    explicit ProcessEnvironment(const ProcessPlace& process);
    // Empty when there is none of that name.
    std::string value(std::string_view name) const;

private:
    std::vector<std::string> m_variables;
};

// Variables are inherited by everything that an application starts. Only its own processes count, so the next two look
// at whom the variables speak of.

// The path of the AppImage whose mount the executable lies in.
std::optional<std::string> imageInEnvironment(const ProcessEnvironment& environment, std::string_view executable);

// The id of the desktop entry that this very process was launched from.
std::optional<std::string> idInEnvironment(const ProcessEnvironment& environment, std::int32_t pid);

} // namespace orrinvale
