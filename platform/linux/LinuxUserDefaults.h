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
// writes it whole and atomically; all else in it survives. A file that can be read and is no settings is set aside
// under another name before anything is written. One that the system refuses to read just now is left alone: what is
// assigned meanwhile stands in memory and is written once the file can be read again. One that is missing is written
// with all that is known. Main thread.
class LinuxUserDefaults final : public UserDefaults
{
public:
    explicit LinuxUserDefaults(std::filesystem::path file);
    ~LinuxUserDefaults() override;

    std::optional<DefaultsValue> object(const std::string& key) override;
    void set(const std::string& key, DefaultsValue value) override;

private:
    bool load(); // false: the file is there, and nothing may be written in its place
    void take(nlohmann::ordered_json stored);
    bool setAside() const;

    std::filesystem::path m_file;
    std::unique_ptr<nlohmann::ordered_json> m_values;    // always an object
    std::unique_ptr<nlohmann::ordered_json> m_unwritten; // the same: what was assigned and could not be written
};

} // namespace orrinvale
