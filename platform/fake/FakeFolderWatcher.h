// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FolderWatcher.h"

#include <map>
#include <memory>
#include <utility>

namespace orrinvale
{

class FakeFolderWatcher final : public FolderWatcher
{
public:
    std::map<std::string, std::vector<FolderEntry>> folders; // a path that is missing cannot be opened or listed
    std::vector<std::string> watched;                        // every attempt
    int listings = 0;
    std::function<void()> whileOpening; // what goes on elsewhere during the next attempt
    std::function<void()> afterListing; // the same once the next listing is taken, before it is used

    std::size_t liveWatches() const { return m_watches->size(); }

    // What a folder event does on the background thread.
    void notify(const std::string& path)
    {
        const auto watches = *m_watches;
        for (const auto& [id, watch] : watches) {
            if (watch.path == path)
                watch.onChange();
        }
    }

    Cancellable watch(const std::string& path, std::function<void()> onChange) override
    {
        watched.push_back(path);
        if (const auto meanwhile = std::exchange(whileOpening, nullptr))
            meanwhile();
        if (!folders.contains(path))
            return {};
        m_watches->emplace(++m_lastId, Watch{path, std::move(onChange)});
        return Cancellable([weak = std::weak_ptr(m_watches), id = m_lastId] {
            if (const auto watches = weak.lock())
                watches->erase(id);
        });
    }

    std::optional<std::vector<FolderEntry>> entries(const std::string& path) override
    {
        ++listings;
        const auto found = folders.find(path);
        const auto listed = found == folders.end() ? std::nullopt : std::optional(found->second);
        if (const auto meanwhile = std::exchange(afterListing, nullptr))
            meanwhile();
        return listed;
    }

private:
    struct Watch {
        std::string path;
        std::function<void()> onChange;
    };

    std::shared_ptr<std::map<int, Watch>> m_watches = std::make_shared<std::map<int, Watch>>();
    int m_lastId = 0;
};

} // namespace orrinvale
