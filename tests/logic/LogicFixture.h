// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/AppSettings.h"
#include "platform/fake/FakePlatform.h"
#include "tests/TemporaryFolder.h"
#include "text/LocalCalendar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orrinvale
{

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

// A fake machine, its settings and virtual time.
struct LogicFixture : testing::Test {
    AppSettings& settings()
    {
        if (!m_settings)
            m_settings = std::make_unique<AppSettings>(platform(), calendar);
        return *m_settings;
    }
    Platform& platform()
    {
        if (!m_platform)
            m_platform = std::make_unique<Platform>(fake.platform());
        return *m_platform;
    }

    FakePlatform fake;
    VirtualTime& time = fake.time;
    LocalCalendar calendar{"UTC"};

private:
    std::unique_ptr<Platform> m_platform;
    std::unique_ptr<AppSettings> m_settings;
};

} // namespace orrinvale
