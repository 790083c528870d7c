// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/Descriptor.h"

#include <gtest/gtest.h>

#include <fcntl.h>

namespace orrinvale
{
namespace
{

bool isOpenInThisProcess(int descriptor)
{
    return ::fcntl(descriptor, F_GETFD) >= 0;
}

TEST(Descriptor, ClosesWhatItOwnsAtItsEnd)
{
    int number = -1;
    {
        const Descriptor descriptor(::open("/dev/null", O_RDONLY | O_CLOEXEC));
        ASSERT_TRUE(descriptor.isOpen());
        number = descriptor.get();
    }
    EXPECT_FALSE(isOpenInThisProcess(number));
}

TEST(Descriptor, MovingLeavesNoneBehind)
{
    Descriptor first(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    const auto number = first.get();
    const Descriptor second(std::move(first));
    EXPECT_EQ(second.get(), number);
    EXPECT_TRUE(isOpenInThisProcess(number));
}

TEST(Descriptor, TheOneReplacedIsClosed)
{
    Descriptor kept(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    const auto replaced = kept.get();
    kept = Descriptor(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    EXPECT_TRUE(kept.isOpen());
    EXPECT_NE(kept.get(), replaced);
    EXPECT_FALSE(isOpenInThisProcess(replaced));
}

TEST(Descriptor, NoneIsNotOpenAndMayBeClosed)
{
    Descriptor none;
    EXPECT_FALSE(none.isOpen());
    EXPECT_TRUE(none.close());
    EXPECT_FALSE(Descriptor(-1).isOpen());
}

} // namespace
} // namespace orrinvale
