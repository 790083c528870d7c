// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ThemeLook.h"

#include "tests/interface/InterfaceFixture.h"

namespace orrinvale
{

namespace
{

struct ThemeLookTest : InterfaceFixture {
    Look lookWith(AppTheme theme, bool systemIsDark)
    {
        fake.appearance.systemIsDark = systemIsDark;
        settings().appTheme.set(theme);
        settings().applyTheme();
        return lookOf(settings());
    }
};

TEST_F(ThemeLookTest, TheFourThemesGiveThreeLooks)
{
    for (const auto systemIsDark : {false, true}) {
        EXPECT_EQ(lookWith(AppTheme::light, systemIsDark), Look::light);
        EXPECT_EQ(lookWith(AppTheme::dark, systemIsDark), Look::dark);
        EXPECT_EQ(lookWith(AppTheme::sakura, systemIsDark), Look::sakura);
        EXPECT_EQ(lookWith(AppTheme::system, systemIsDark), systemIsDark ? Look::dark : Look::light);
    }
}

} // namespace

} // namespace orrinvale
