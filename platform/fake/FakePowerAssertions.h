// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerAssertions.h"

#include <map>
#include <string>
#include <vector>

namespace orrinvale
{

class FakePowerAssertions final : public PowerAssertions
{
public:
    struct Request {
        std::string type;
        std::uint32_t level;
        std::string name;
    };

    std::vector<Request> created;              // every attempt
    std::map<std::uint32_t, std::string> held; // name by identifier
    std::vector<std::uint32_t> released;       // every call
    std::int32_t status = 0;                   // what the next attempts answer

    Created create(std::string_view type, std::uint32_t level, std::string_view name) override
    {
        created.push_back({std::string(type), level, std::string(name)});
        if (status != 0)
            return {status, 0};
        held.emplace(++m_lastId, name);
        return {0, m_lastId};
    }

    void release(std::uint32_t id) override
    {
        released.push_back(id);
        held.erase(id);
    }

private:
    std::uint32_t m_lastId = 0;
};

} // namespace orrinvale
