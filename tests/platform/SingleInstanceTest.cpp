// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/SingleInstance.h"

#include "tests/TemporaryFolder.h"
#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

#include <fstream>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orrinvale
{

namespace
{

using Role = SingleInstance::Role;

struct SingleInstanceTest : testing::Test {
    std::filesystem::path path(const char* name) const { return folder / name; }

    TemporaryFolder temporary;
    const std::filesystem::path& folder = temporary.path;
};

TEST_F(SingleInstanceTest, TheSecondOneIsToldSoAndCallsTheFirstForward)
{
    SingleInstance first(folder);
    EXPECT_EQ(first.claim(), Role::first);
    auto calls = 0;
    first.listen([&] { ++calls; });
    for (int start = 1; start <= 2; ++start) {
        SingleInstance second(folder);
        EXPECT_EQ(second.claim(), Role::second);
        EXPECT_TRUE(waitFor([&] { return calls == start; }));
    }
}

TEST_F(SingleInstanceTest, TheNextOneIsFirstOnceTheFirstHasGone)
{
    {
        SingleInstance gone(folder);
        EXPECT_EQ(gone.claim(), Role::first);
    }
    SingleInstance next(folder);
    EXPECT_EQ(next.claim(), Role::first);
}

TEST_F(SingleInstanceTest, WhatAKilledOneLeftIsNoHindrance)
{
    const auto killed = ::fork();
    if (killed == 0) {
        SingleInstance instance(folder);
        ::_exit(instance.claim() == Role::first ? 0 : 1);
    }
    int status = 0;
    ::waitpid(killed, &status, 0);
    ASSERT_EQ(status, 0);
    std::ofstream(path("orrinvale.socket")) << "left";
    SingleInstance next(folder);
    EXPECT_EQ(next.claim(), Role::first);
    auto calls = 0;
    next.listen([&] { ++calls; });
    EXPECT_EQ(SingleInstance(folder).claim(), Role::second);
    EXPECT_TRUE(waitFor([&] { return calls == 1; }));
}

TEST_F(SingleInstanceTest, AFirstThatDoesNotListenYetHoldsTheSecondUpByNothing)
{
    SingleInstance first(folder);
    first.claim();
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(SingleInstance(folder).claim(), Role::second);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(500));
}

TEST_F(SingleInstanceTest, AFolderWithALongPathServesToo)
{
    const auto deep = folder / std::string(120, 'd');
    std::filesystem::create_directory(deep);
    SingleInstance first(deep);
    EXPECT_EQ(first.claim(), Role::first);
    auto calls = 0;
    first.listen([&] { ++calls; });
    EXPECT_EQ(SingleInstance(deep).claim(), Role::second);
    EXPECT_TRUE(waitFor([&] { return calls == 1; }));
}

TEST_F(SingleInstanceTest, AFolderThatIsMissingMakesItTheFirstAndSaysSo)
{
    testing::internal::CaptureStdout();
    SingleInstance instance(folder / "missing");
    EXPECT_EQ(instance.claim(), Role::first);
    instance.listen([] {});
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "⚠️ SingleInstance: a second start cannot bring this one forward: No such file or directory\n");
}

TEST_F(SingleInstanceTest, LockAndSocketAreTheUsersAloneAndTheSocketGoes)
{
    SingleInstance instance(folder);
    instance.claim();
    instance.listen([] {});
    for (const auto* name : {"orrinvale.lock", "orrinvale.socket"}) {
        struct stat status {
        };
        ASSERT_EQ(::stat(path(name).c_str(), &status), 0) << name;
        EXPECT_EQ(status.st_mode & 0777, 0600u) << name;
    }
    instance.stop();
    EXPECT_FALSE(std::filesystem::exists(path("orrinvale.socket")));
}

} // namespace

} // namespace orrinvale
