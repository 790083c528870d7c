// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ApplicationPalette.h"

#include "tests/interface/InterfaceFixture.h"

#include <QPalette>
#include <QToolTip>

namespace orrinvale
{

namespace
{

struct ApplicationPaletteTest : testing::Test {
    ~ApplicationPaletteTest() override { applyApplicationPalette(std::nullopt); }
};

TEST_F(ApplicationPaletteTest, LightAndDarkAreApplied)
{
    applyApplicationPalette(true);
    EXPECT_TRUE(isPaletteDark());
    applyApplicationPalette(false);
    EXPECT_FALSE(isPaletteDark());
}

TEST_F(ApplicationPaletteTest, TheDesktopsOwnComesBack)
{
    const auto own = QApplication::palette().color(QPalette::Window);
    applyApplicationPalette(!isPaletteDark());
    EXPECT_NE(QApplication::palette().color(QPalette::Window), own);
    applyApplicationPalette(std::nullopt);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), own);
}

TEST_F(ApplicationPaletteTest, TooltipsFollow)
{
    QToolTip::setPalette(QPalette(Qt::white, Qt::white)); // as a desktop's theme may have
    applyApplicationPalette(true);
    EXPECT_LT(QToolTip::palette().color(QPalette::ToolTipBase).lightness(), 128);
    EXPECT_GT(QToolTip::palette().color(QPalette::ToolTipText).lightness(), 128);
}

} // namespace

} // namespace orrinvale
