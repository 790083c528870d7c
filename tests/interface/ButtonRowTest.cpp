// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ButtonRow.h"

#include "kit/FocusRing.h"
#include "kit/WindowButton.h"
#include "orrinvale/RowText.h"
#include "tests/interface/WindowFixture.h"

namespace orrinvale
{

namespace
{

struct ButtonRowTest : InterfaceFixture {
    ButtonRowTest() { show(538); }
    void show(int width)
    {
        row.applyTheme(WindowPalette::of(Look::light));
        row.resize(width, row.heightFor(width));
        row.show();
    }
    QRect buttonPlace() const { return shownRect(row.button()).translated(row.button().pos()); }

    ButtonRow row{QStringLiteral("Downloads Folder"), QStringLiteral("~/Downloads"), QStringLiteral("Choose"), nullptr,
                  Qt::ElideMiddle};
};

TEST_F(ButtonRowTest, StandsAsItWasDrawn)
{
    EXPECT_EQ(row.height(), 56);
    EXPECT_EQ(buttonPlace().right() + 1, 538 - 16);
    EXPECT_EQ(buttonPlace().top(), 14);
    EXPECT_EQ(buttonPlace().height(), 28);
    EXPECT_EQ(row.text().x(), 16);
    EXPECT_EQ(row.text().y(), (56 - 33) / 2);
    EXPECT_EQ(buttonPlace().left() - row.text().geometry().right() - 1, 16);
}

TEST_F(ButtonRowTest, TheButtonSaysWhatItIsAbout)
{
    EXPECT_EQ(row.button().accessibleName(), QStringLiteral("Choose"));
    EXPECT_EQ(row.button().accessibleDescription(), QStringLiteral("Downloads Folder"));
    EXPECT_EQ(row.button().kind(), WindowButton::Kind::ordinary);
}

TEST_F(ButtonRowTest, IsStyledWhole)
{
    for (const auto look : allLooks) {
        const auto& colours = WindowPalette::of(look);
        row.applyTheme(colours);
        expectText(row.text().titleLabel(), {13, QFont::Normal}, colours.primaryText);
        expectText(row.text().subtitleLabel(), {11, QFont::Normal}, colours.quietText);
        EXPECT_EQ(bytes(row.button().ground()), bytes(colours.button));
    }
}

TEST_F(ButtonRowTest, ALongPathIsCutInTheMiddleAndNeverReachesTheButton)
{
    const auto path = QStringLiteral("/a/path/that/is/") + QString(300, QLatin1Char('x')) + QStringLiteral("/long");
    row.text().setSubtitle(path);
    show(458);
    EXPECT_EQ(row.height(), 56);
    EXPECT_EQ(row.text().subtitleLabel().text(), path);
    EXPECT_EQ(row.text().subtitleLabel().toolTip(), plainToolTip(path));
    EXPECT_LT(row.text().geometry().right(), buttonPlace().left());
}

TEST_F(ButtonRowTest, LargerTextIsWhole)
{
    const LargerText larger(1.5);
    show(458);
    expectWhole(row.text().titleLabel(), 27);
    expectWhole(row.text().subtitleLabel(), 23);
    EXPECT_GE(row.height(), 27 + 23 + 16);
    EXPECT_EQ(buttonPlace().height(), 37);
    EXPECT_EQ(buttonPlace().size(), row.button().shownSize());
    EXPECT_LT(row.text().geometry().right(), buttonPlace().left());
}

} // namespace

} // namespace orrinvale
