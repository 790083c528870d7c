// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"

#include <nlohmann/json_fwd.hpp>

#include <filesystem>
#include <memory>

namespace orrinvale
{

// The settings as one JSON file that a person may edit: true and false, whole numbers, fractions, texts,
// {"date": "2026-03-14T09:26:53Z"}, and arrays for data. An assignment reads the file again, replaces its one key and
// writes it whole and atomically; all else in it survives. A file that cannot be read as a whole is set aside under
// another name before anything is written. Main thread.
class LinuxUserDefaults final : public UserDefaults
{
public:
    explicit LinuxUserDefaults(std::filesystem::path file);
    ~LinuxUserDefaults() override;

    std::optional<DefaultsValue> object(const std::string& key) override;
    void set(const std::string& key, DefaultsValue value) override;

private:
    bool load(); // false: the file is there, unreadable, and could not be set aside
    bool setAside() const;

    std::filesystem::path m_file;
    std::unique_ptr<nlohmann::ordered_json> m_values; // always an object
};

} // namespace orrinvale
