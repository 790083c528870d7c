// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/SerialQueue.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace orrinvale
{

class ApplicationSupport;

// One file in the application's support folder, written whole and atomically on a queue of its own, 0.3 seconds after
// the last change. The folder is made at construction and never again. Every failure is silent. Main thread.
class DebouncedFile
{
public:
    DebouncedFile(ApplicationSupport& support, SerialQueues& queues, const std::string& fileName,
                  std::string queueLabel);

    const std::filesystem::path& fileURL() const { return m_fileURL; }
    // nullopt when the file cannot be read. One that is larger than any of ours is set aside, unread, as
    // "<name>.unreadable": reading and decoding it would hold up the start.
    std::optional<std::string> read();
    // Replaces a write that has not begun. `encode` runs on the queue and must own what it reads.
    void save(std::function<std::string()> encode);

private:
    std::filesystem::path m_fileURL;
    std::unique_ptr<SerialQueue> m_queue;
    Cancellable m_pendingSaveWorkItem;
};

} // namespace orrinvale
