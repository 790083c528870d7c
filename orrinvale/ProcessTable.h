// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace orrinvale
{

// Processes of the system itself, never named as the cause of load. Compared to the letter.
inline constexpr std::array<std::string_view, 33> ignoredProcessNames{"kernel_task",
                                                                      "launchd",
                                                                      "ps",
                                                                      "WindowServer",
                                                                      "mdworker",
                                                                      "mdworker_shared",
                                                                      "mds",
                                                                      "mds_stores",
                                                                      "mdsync",
                                                                      "mdbulkimport",
                                                                      "backupd",
                                                                      "backupd-helper",
                                                                      "bird",
                                                                      "cloudd",
                                                                      "cloudphotod",
                                                                      "com.apple.CloudDocs.MobileDocumentsFileProvider",
                                                                      "photoanalysisd",
                                                                      "photolibraryd",
                                                                      "coreduetd",
                                                                      "corespotlightd",
                                                                      "trustd",
                                                                      "syspolicyd",
                                                                      "softwareupdated",
                                                                      "iconservicesagent",
                                                                      "cloudpaird",
                                                                      "logd",
                                                                      "UserEventAgent",
                                                                      "powerd",
                                                                      "appleh13camerad",
                                                                      "endpointsecurityd",
                                                                      "diagnosticd",
                                                                      "corespeechd",
                                                                      "suggestd"};

// The name of the first process of a "pid %cpu command" table, busiest first, that is no part of the system, has an id
// of at least 2 and more than 1 % of a core. nullopt when there is none.
std::optional<std::string> topProcessName(std::string_view table);

// What stands behind the last slash, trailing slashes aside.
std::string lastPathComponent(std::string_view path);

} // namespace orrinvale
