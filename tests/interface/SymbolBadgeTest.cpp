// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/SymbolBadge.h"

#include "tests/interface/InterfaceFixture.h"

namespace orrinvale
{

namespace
{

struct SymbolBadgeTest : InterfaceFixture {
    SymbolBadgeTest()
    {
        badge.resize(32, 32);
        badge.setColours(Qt::blue, Qt::white);
    }
    QColor at(int x, int y)
    {
        QImage image(badge.size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        badge.render(&image, {}, {}, {});
        return image.pixelColor(x, y);
    }

    SymbolBadge badge{8, 16, nullptr};
};

TEST_F(SymbolBadgeTest, IsARoundedSquareWithTheSymbolInItsMiddle)
{
    badge.setSymbol(QStringLiteral("bolt.fill"));
    EXPECT_EQ(at(16, 1), QColor(Qt::blue));
    EXPECT_EQ(at(0, 0).alpha(), 0);
    EXPECT_EQ(at(3, 3), QColor(Qt::blue));
    EXPECT_EQ(at(16, 16), QColor(Qt::white));
    EXPECT_EQ(badge.cornerRadius(), 8);
    EXPECT_EQ(badge.symbolPoints(), 16);
}

TEST_F(SymbolBadgeTest, AnUnknownSymbolLeavesTheGroundEmpty)
{
    badge.setSymbol(QStringLiteral("no.such.symbol"));
    for (const auto position : {8, 12, 16, 20, 24})
        EXPECT_EQ(at(position, position), QColor(Qt::blue));
}

TEST_F(SymbolBadgeTest, ARadiusOfHalfItsSizeMakesADot)
{
    SymbolBadge dot(4, 0, nullptr);
    dot.resize(8, 8);
    dot.setColours(Qt::red, Qt::transparent);
    QImage image(dot.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    dot.render(&image, {}, {}, {});
    EXPECT_EQ(image.pixelColor(4, 4), QColor(Qt::red));
    EXPECT_LT(image.pixelColor(0, 0).alpha(), 40);
    EXPECT_GT(image.pixelColor(0, 4).alpha(), 200);
}

TEST_F(SymbolBadgeTest, OpacityFadesGroundAndSymbolTogether)
{
    badge.setSymbol(QStringLiteral("bolt.fill"));
    badge.setOpacity(0);
    EXPECT_EQ(at(16, 1).alpha(), 0);
    EXPECT_EQ(at(16, 16).alpha(), 0);
    badge.setOpacity(0.5);
    EXPECT_NEAR(at(16, 1).alpha(), 128, 1);
}

TEST_F(SymbolBadgeTest, TakesNoInput)
{
    EXPECT_TRUE(badge.testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(badge.focusPolicy(), Qt::NoFocus);
}

} // namespace

} // namespace orrinvale
