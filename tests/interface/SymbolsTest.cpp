// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/Symbols.h"

#include "tests/interface/InterfaceFixture.h"

namespace orrinvale
{

namespace
{

int inkedPixels(const QPixmap& pixmap)
{
    const auto image = pixmap.toImage();
    auto count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 0;
    return count;
}

TEST(Symbols, EveryNameThatThePopoverUsesIsASymbol)
{
    for (const auto* name : {"antenna.radiowaves.left.and.right", "arrow.down.circle.fill", "bolt.fill",
                             "chevron.right", "cpu", "ellipsis.circle", "gearshape.circle.fill", "gearshape.fill",
                             "leaf.circle.fill", "lock.fill", "moon.zzz.fill", "power.circle.fill"}) {
        EXPECT_TRUE(isSymbol(QLatin1String(name))) << name;
        EXPECT_GT(inkedPixels(symbolPixmap(QLatin1String(name), 16, Qt::black, 1)), 20) << name;
    }
}

TEST(Symbols, AnUnknownNameIsNone)
{
    for (const auto* name : {"", "unknown.symbol", "CPU"}) {
        EXPECT_FALSE(isSymbol(QLatin1String(name))) << name;
        EXPECT_TRUE(symbolPixmap(QLatin1String(name), 16, Qt::black, 1).isNull()) << name;
    }
}

TEST(Symbols, APixmapHasTheColourAskedForAndThePixelsOfTheRatio)
{
    const auto pixmap = symbolPixmap(QStringLiteral("bolt.fill"), 16, QColor(10, 20, 30), 2);
    EXPECT_EQ(pixmap.size(), QSize(32, 32));
    EXPECT_EQ(pixmap.devicePixelRatio(), 2);
    EXPECT_EQ(pixmap.toImage().pixelColor(16, 16), QColor(10, 20, 30));
}

TEST(Symbols, TheSameSymbolInAnotherColourIsAnotherPicture)
{
    const auto red = symbolPixmap(QStringLiteral("bolt.fill"), 16, Qt::red, 1);
    const auto blue = symbolPixmap(QStringLiteral("bolt.fill"), 16, Qt::blue, 1);
    EXPECT_NE(red.toImage(), blue.toImage());
}

} // namespace

} // namespace orrinvale
