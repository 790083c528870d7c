// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/Lifetime.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace orrinvale
{
namespace
{

TEST(Lifetime, WorkRunsWhileTheOwnerStands)
{
    const Lifetime lifetime;
    int sum = 0;
    const std::function<void(int)> add = lifetime.unlessGone([&](int number) { sum += number; });
    add(2);
    add(3);
    EXPECT_EQ(sum, 5);
}

TEST(Lifetime, WorkDoesNothingOnceTheOwnerIsGone)
{
    std::optional<Lifetime> lifetime(std::in_place);
    int runs = 0;
    const auto work = lifetime->unlessGone([&] { ++runs; });
    EXPECT_FALSE(work.isGone());
    lifetime.reset();
    EXPECT_TRUE(work.isGone());
    work();
    EXPECT_EQ(runs, 0);
}

TEST(Lifetime, RenewingEndsEarlierWorkAlone)
{
    Lifetime lifetime;
    int earlier = 0;
    int later = 0;
    const auto first = lifetime.unlessGone([&] { ++earlier; });
    lifetime.renew();
    const auto second = lifetime.unlessGone([&] { ++later; });
    first();
    second();
    EXPECT_EQ(earlier, 0);
    EXPECT_EQ(later, 1);
}

TEST(Lifetime, WorkMayEndItsOwner)
{
    std::optional<Lifetime> lifetime(std::in_place);
    int runs = 0;
    const auto work = lifetime->unlessGone([&] {
        lifetime.reset();
        ++runs;
    });
    work();
    work();
    EXPECT_EQ(runs, 1);
}

} // namespace
} // namespace orrinvale
