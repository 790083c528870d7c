// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/DebouncedFile.h"

#include "base/AtomicFile.h"
#include "platform/ApplicationSupport.h"

namespace orrinvale
{

using namespace std::chrono_literals;

constexpr auto saveDelay = 300ms;
constexpr auto folderName = "orrinvale";
constexpr std::uint64_t largestFile = 4 * 1024 * 1024; // more than 5000 entries with the longest file names take

namespace
{

std::filesystem::path makeFolder(ApplicationSupport& support)
{
    const auto parent = support.applicationSupportDirectory();
    const auto folder = (parent ? *parent : support.temporaryDirectory()) / folderName;
    std::error_code ignored;
    if (!std::filesystem::exists(folder, ignored) && std::filesystem::create_directories(folder, ignored))
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, ignored);
    return folder;
}

} // namespace

DebouncedFile::DebouncedFile(ApplicationSupport& support, SerialQueues& queues, const std::string& fileName,
                             std::string queueLabel)
    : m_fileURL(makeFolder(support) / fileName), m_queue(queues.make(std::move(queueLabel)))
{
}

std::optional<std::string> DebouncedFile::read()
{
    auto reading = readFile(m_fileURL, largestFile);
    if (reading.result == FileReading::Result::whole)
        return std::move(reading.bytes);
    std::error_code ignored;
    if (reading.result == FileReading::Result::unsuitable)
        std::filesystem::rename(m_fileURL, m_fileURL.string() + ".unreadable", ignored);
    return std::nullopt;
}

void DebouncedFile::save(std::function<std::string()> encode)
{
    m_pendingSaveWorkItem = m_queue->after(
        saveDelay, [encode = std::move(encode), url = m_fileURL] { writeFileAtomically(url, encode()); });
}

} // namespace orrinvale
