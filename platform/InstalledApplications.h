// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orrinvale
{

// All texts are UTF-8.
struct InstalledApplication {
    std::string bundleIdentifier; // its own, which it has or is known as when it runs
    std::string name;             // in the user's language
    std::string path;             // of what the application was found by
    std::string iconName;         // in the icon theme, or a file's absolute path; empty when there is none

    friend bool operator==(const InstalledApplication&, const InstalledApplication&) = default;
};

// The applications that a user may start. Reads many files: meant for the background; any thread may ask.
class InstalledApplications
{
public:
    virtual ~InstalledApplications() = default;
    // In order of precedence; an identifier may come again, and then the first one counts.
    virtual std::vector<InstalledApplication> scan() const = 0;
    // By its own identifier, else by one that it is known as when it runs. Hidden ones too; nullopt when there is none.
    virtual std::optional<InstalledApplication> find(const std::string& bundleIdentifier) const = 0;
};

} // namespace orrinvale
